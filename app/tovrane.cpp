// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tovrane.h"

#include "about/about.h"
#include "app/frame_limiter.h"
#include "app/images.h"
#include "app/run_state.h"
#include "app/tool_button.h"
#include "app/window_background.h"
#include "settings/setting.h"
#include "ui_tovrane.h"

#include <QAction>
#include <QGuiApplication>
#include <QResizeEvent>
#include <QScreen>

#include <algorithm>
#include <array>

namespace {

struct ToolbarEntry
{
    QToolButton *Ui_tovrane::*button;
    const char *text;
    QLatin1String image;
};

constexpr ToolbarEntry aboutEntry{&Ui_tovrane::toolButton_About, QT_TRANSLATE_NOOP("tovrane", "About"), image::about};

constexpr std::array fileEntries{
    ToolbarEntry{&Ui_tovrane::toolButton_AddFile, QT_TRANSLATE_NOOP("tovrane", "Add"), image::add},
    ToolbarEntry{&Ui_tovrane::toolButton_Delete, QT_TRANSLATE_NOOP("tovrane", "Delete"), image::remove},
    ToolbarEntry{&Ui_tovrane::toolButton_Clear, QT_TRANSLATE_NOOP("tovrane", "Clear"), image::clear},
    ToolbarEntry{&Ui_tovrane::toolButton_Setting, QT_TRANSLATE_NOOP("tovrane", "Setting"), image::setting},
};

constexpr int sizeColumnWidth = 150;
constexpr int narrowestNameColumn = 400;

} // namespace

tovrane::tovrane(QWidget *parent) : QMainWindow(parent), ui(std::make_unique<Ui_tovrane>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    ui->tableWidget_Files->setDropIndicatorShown(true);
    ui->tableWidget_Files->setDragDropMode(QAbstractItemView::DragOnly);
    ui->tableWidget_Files->setDragDropOverwriteMode(true);
    placeOnScreen();
    paintBackground(this);
    setAttribute(Qt::WA_DeleteOnClose); // a second time, on purpose
    new FrameLimiter(this);
    connectWidgets();
    ui->tableWidget_Files->setContextMenuPolicy(Qt::ActionsContextMenu);
    // The closing parenthesis is missing on purpose: Qt rejects the rule and the table keeps its colours.
    ui->tableWidget_Files->setStyleSheet(QStringLiteral("background-color:rgb(122,122,122"));
    addTableActions();
    g_bProcess = false; // for any new window: this is how the settings dialog ends a run
    g_bMainWindowRun = false;
    InitAllChoice();
}

/// An engine that is running finishes its file without the window.
tovrane::~tovrane() = default;

void tovrane::placeOnScreen()
{
    setGeometry(0, 0, width(), height());
    const QRect screen = QGuiApplication::screens().at(0)->geometry();
    const QPoint centred = screen.center() - rect().center();
    // On a screen that is too small, show the top left part, which contains everything except the banner and the
    // progress bar.
    move(std::max(centred.x(), screen.x()), std::max(centred.y(), screen.y()));
    setFixedSize(width(), height());
}

void tovrane::connectWidgets()
{
    connect(ui->toolButton_About, &QToolButton::clicked, this, &tovrane::On_Button_About);
    connect(ui->toolButton_AddFile, &QToolButton::clicked, this, &tovrane::On_Button_AddFile);
    connect(ui->toolButton_Delete, &QToolButton::clicked, this, &tovrane::On_Button_RemoveFile);
    connect(ui->toolButton_Clear, &QToolButton::clicked, this, &tovrane::On_Button_ClearFile);
    connect(ui->toolButton_Setting, &QToolButton::clicked, this, &tovrane::On_Button_Setting);
    connect(ui->toolButton_Start, &QToolButton::clicked, this, &tovrane::On_Button_Start);
    // A click that changes the row runs the slot twice, and a double click runs two slots: on purpose.
    connect(ui->listWidget_Format, &QListWidget::clicked, this, &tovrane::On_ListWidget_ItemClicked);
    connect(ui->listWidget_Format, &QListWidget::currentRowChanged, this, &tovrane::On_ListWidget_ItemClicked);
    connect(ui->toolButton_Change, &QPushButton::clicked, this, &tovrane::On_Button_OutputFolder);
    connect(ui->tableWidget_Files, &QTableWidget::doubleClicked, this, &tovrane::On_TableWidget_DoubleClicked);
    connect(ui->tableWidget_Files, &QTableWidget::cellDoubleClicked, this, &tovrane::openFile);
}

void tovrane::addTableActions()
{
    QTableWidget *table = ui->tableWidget_Files;
    auto *add = new QAction(QStringLiteral("Add File(s)"), table);
    auto *view = new QAction(QStringLiteral("View PDF File"), table);
    auto *removeSelected = new QAction(QStringLiteral("Delete Selected Item(s)"), table);
    auto *removeAll = new QAction(QStringLiteral("Delete All Item(s)"), table);
    connect(add, &QAction::triggered, this, &tovrane::On_Button_AddFile);
    connect(view, &QAction::triggered, this, &tovrane::openFile);
    connect(removeSelected, &QAction::triggered, this, &tovrane::On_Button_RemoveFile);
    connect(removeAll, &QAction::triggered, this, &tovrane::On_Button_ClearFile);
    table->addActions({add, view, removeSelected, removeAll});
}

void tovrane::InitAllChoice()
{
    const auto dress = [this](const ToolbarEntry &entry) {
        dressToolButton(ui.get()->*entry.button, tr(entry.text), entry.image);
    };
    setWindowTitle(tr("Marbeck Quorra Converter"));
    dress(aboutEntry);
    DymicUpdateStartButtonIconText(g_bProcess);
    std::for_each(fileEntries.begin(), fileEntries.end(), dress);
    fillFormatList();
    ui->tableWidget_Files->setSelectionBehavior(QAbstractItemView::SelectRows);
    ui->tableWidget_Files->setRowCount(0);
    ui->tableWidget_Files->setColumnCount(2);
    ui->tableWidget_Files->setHorizontalHeaderLabels({tr("File Name"), tr("File Size")});
    ui->tableWidget_Files->setColumnWidth(1, 100);
    ui->listWidget_Format->setMinimumSize(150, 300);
    ui->listWidget_Format->setMaximumSize(150, 1500);
    restoreOutputFolder();
    ui->progressBar->setValue(0);
}

void tovrane::On_Button_Setting()
{
    Setting dialog;
    dialog.exec();
}

void tovrane::On_Button_About()
{
    about dialog;
    dialog.exec();
}

/// The handler of the base class is not called on purpose.
void tovrane::resizeEvent(QResizeEvent * /*event*/)
{
    QTableWidget *table = ui->tableWidget_Files;
    table->setColumnWidth(0, table->width() - sizeColumnWidth);
    table->setColumnWidth(1, 100); // replaced below, on purpose
    if (table->columnWidth(0) < narrowestNameColumn) {
        table->setColumnWidth(0, narrowestNameColumn);
    }
    if (table->columnWidth(1) != sizeColumnWidth) {
        table->setColumnWidth(1, sizeColumnWidth);
    }
}
