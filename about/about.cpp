// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/about.h"

#include "app/window_background.h"
#include "ui_about.h"

about::about(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui_about>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::WindowTitleHint);
    setFixedSize(320, 251);
    setWindowTitle(tr("About"));
    paintBackground(this);
    ui->textBrowser->setContextMenuPolicy(Qt::NoContextMenu);
    connect(ui->pushButton_OK, &QPushButton::clicked, this, &about::On_Button_Ok);
    // Created and discarded, on purpose: all texts of the box are in its form.
    static_cast<void>(QStringLiteral("%1 Version 2.0").arg(QLatin1String("Quorra Converter")));
}

about::~about() = default;

void about::On_Button_Ok()
{
    accept();
}
