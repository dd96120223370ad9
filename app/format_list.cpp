// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's output kind and output folder.
#include "app/images.h"
#include "app/output_extensions.h"
#include "app/output_kinds.h"
#include "app/run_state.h"
#include "app/tovrane.h"
#include "settings/store.h"
#include "ui_tovrane.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>

QString tovrane::FormatNumbertoString(int index) const
{
    return extensionOfIndex(index);
}

int tovrane::FormatStringtoNumber(const QString &extension) const
{
    return indexOfExtension(extension);
}

QString tovrane::GetOutputFormat() const
{
    const QSettings settings = store::open();
    return FormatNumbertoString(store::text(settings, store::key::converterFormat, QLatin1String("")).toInt());
}

void tovrane::fillFormatList()
{
    for (const OutputKind &kind : outputKinds()) {
        ui->listWidget_Format->addItem(tr(kind.text.data()));
    }
    const int saved = store::open().value(store::key::outputKindRow, 0).toInt();
    ui->listWidget_Format->setCurrentRow(selectableRow(saved)); // runs On_ListWidget_ItemClicked()
}

void tovrane::On_ListWidget_ItemClicked()
{
    const int row = ui->listWidget_Format->currentRow();
    if (g_bProcess) {
        return;
    }
    showSelectedRow(row);
    const int index = FormatStringtoNumber(defaultExtensionOfRow(row));
    {
        store::Writer settings;
        settings.set(store::key::outputKindRow, QString::number(row));
        settings.set(store::key::converterFormat, QString::number(index));
    }
    m_strOutputFormat = GetOutputFormat();
    m_strParameter = GetSetParameter();
}

/// The current row has a taller size hint and a different icon.
void tovrane::showSelectedRow(int selected)
{
    const QIcon icon(loadImage(image::row));
    const QIcon currentIcon(loadImage(image::currentRow));
    for (int row = 0; row < ui->listWidget_Format->count(); ++row) {
        QListWidgetItem *item = ui->listWidget_Format->item(row);
        item->setSizeHint(row == selected ? QSize(100, 32) : QSize(100, 22));
        item->setIcon(row == selected ? currentIcon : icon);
    }
}

void tovrane::restoreOutputFolder()
{
    ui->lineEdit_OutputPath->setText(store::text(store::open(), store::key::outputFolder, QLatin1String("")));
}

void tovrane::On_Button_OutputFolder()
{
    if (g_bProcess) {
        return;
    }
    restoreOutputFolder();
    const QString saved = ui->lineEdit_OutputPath->text();
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Open directory"), QFileInfo::exists(saved) ? saved : QString(),
        QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (folder.isEmpty()) {
        return;
    }
    store::write(store::key::outputFolder, folder);
    ui->lineEdit_OutputPath->clear();
    ui->lineEdit_OutputPath->setText(folder);
}

void tovrane::On_Button_Browse()
{
    const QString folder = ui->lineEdit_OutputPath->text();
    if (!QFileInfo::exists(folder)) {
        warnAboutOutputFolder();
        return;
    }
    QStringList command = QProcess::splitCommand(QLatin1String("explorer ") + folder);
    const QString program = command.takeFirst();
    QProcess::startDetached(program, command);
}

void tovrane::warnAboutOutputFolder()
{
    // The only message of the program. Its button is Yes instead of OK on purpose.
    QMessageBox::information(
        this, QStringLiteral("Warning"), QStringLiteral("Please select a correct output folder!"), QMessageBox::Yes);
}
