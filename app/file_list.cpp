// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's list of files: adding, dropping, removing and viewing.
#include "app/listed_files.h"
#include "app/run_state.h"
#include "app/table_rows.h"
#include "app/tovrane.h"
#include "settings/store.h"
#include "ui_tovrane.h"

#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QUrl>

void tovrane::On_Button_AddFile()
{
    if (g_bProcess) {
        return;
    }
    const QString folder = store::text(store::open(), store::key::inputFolder, QLatin1String(""));
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Select one or more files to open"), folder, tr("PDF File (*.pdf);;All Supported Files (*.*)"));
    if (paths.isEmpty()) {
        return;
    }
    // Stored before the files are checked: the folder is remembered even if none of them is accepted.
    store::write(store::key::inputFolder, folderOfPath(paths.first()));
    appendRows(ui->tableWidget_Files, filesToAdd(paths));
}

void tovrane::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(QStringLiteral("text/uri-list"))) {
        event->acceptProposedAction();
    }
}

/// Also works during a run, which reads the number of rows again after each file.
void tovrane::dropEvent(QDropEvent *event)
{
    appendRows(ui->tableWidget_Files, filesToDrop(event->mimeData()->urls()));
}

void tovrane::On_Button_RemoveFile()
{
    if (!g_bProcess) {
        removeCurrentAndSelectedRows(ui->tableWidget_Files);
    }
}

void tovrane::On_Button_ClearFile()
{
    if (!g_bProcess) {
        ui->tableWidget_Files->setRowCount(0);
    }
}

void tovrane::openFile()
{
    const QTableWidget *table = ui->tableWidget_Files;
    const QTableWidgetItem *item = table->item(table->currentRow(), 0);
    if (item != nullptr) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(item->text()));
    }
}

void tovrane::On_TableWidget_DoubleClicked()
{
    const QTableWidgetItem *item = ui->tableWidget_Files->currentItem();
    if (item == nullptr) {
        return;
    }
    const QUrl url(item->text(), QUrl::TolerantMode);
    // A plain path makes a URL without a scheme. Some desktops would open that as well, and openFile(), which runs for
    // the same double click, has opened the file already.
    if (!url.scheme().isEmpty()) {
        QDesktopServices::openUrl(url);
    }
}
