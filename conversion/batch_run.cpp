// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's batch run: one engine process per row, one after another.
#include "app/images.h"
#include "app/run_state.h"
#include "app/tool_button.h"
#include "app/tovrane.h"
#include "conversion/engine_command.h"
#include "conversion/engine_process.h"
#include "ui_tovrane.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

/// Stop performs the checks of Start before it reads the flag, on purpose.
bool tovrane::On_Button_Start()
{
    if (ui->tableWidget_Files->rowCount() < 1) {
        return false;
    }
    const QString folder = ui->lineEdit_OutputPath->text();
    if (folder.isEmpty() || !QDir(folder).exists()) {
        warnAboutOutputFolder();
        return false;
    }
    m_nCurrentRow = 0;
    if (g_bProcess) {
        KillProcess();
    } else {
        g_bProcess = true;
        if (!ExeCmd()) {
            KillProcess();
            return false;
        }
    }
    DymicUpdateStartButtonIconText(g_bProcess);
    DymicUpdateOutputLineText(g_bProcess);
    return true;
}

bool tovrane::ExeCmd()
{
    if (!g_bProcess) {
        return true;
    }
    const QString enginePath = enginePathIn(QDir::currentPath());
    if (QFileInfo(enginePath).size() < 1) {
        return false;
    }
    m_pProcess = makeEngineProcess();
    m_strOutputFormat = GetOutputFormat();
    m_strParameter = GetSetParameter(); // read the settings again for each file
    const QString input = inputPathOfRow(m_nCurrentRow);
    const QString folder = ui->lineEdit_OutputPath->text();
    strOutputFileExist1 = outputPathOf(folder, input, QString(), m_strOutputFormat);
    strOutputFileExist2 = outputPathOf(folder, input, QStringLiteral("0001"), m_strOutputFormat);
    const QString options = optionsForExtension(m_strParameter, m_strOutputFormat);
    startEngine(engineCommand(enginePath, options, input, strOutputFileExist1));
    return true;
}

/// Starts the most recent process for the current row. If there is no such row, releases the process.
void tovrane::startEngine(const QString &command)
{
    const int rows = ui->tableWidget_Files->rowCount();
    if (m_nCurrentRow < 0 || m_nCurrentRow >= rows) {
        m_pProcess->deleteLater();
        return;
    }
    m_pProcess->startCommand(command, QIODevice::ReadWrite);
    ui->progressBar->setMaximum(rows);
    ui->progressBar->setValue(m_nCurrentRow + 1); // includes the file being converted
    ui->tableWidget_Files->setCurrentCell(m_nCurrentRow, 0);
    connect(m_pProcess, &QProcess::finished, this, &tovrane::ExeEnd);
}

QString tovrane::inputPathOfRow(int row) const
{
    const QTableWidgetItem *item = ui->tableWidget_Files->item(row, 0);
    return item == nullptr ? QString() : item->text();
}

/// The result of the engine is ignored: the run continues with the next file.
void tovrane::ExeEnd()
{
    ++m_nCurrentRow;
    if (!g_bProcess) {
        return;
    }
    if (m_nCurrentRow < ui->tableWidget_Files->rowCount()) {
        ExeCmd(); // without an engine the run is stalled until Stop, on purpose
    } else {
        KillProcess();
    }
}

void tovrane::KillProcess()
{
    g_bProcess = !g_bProcess; // first, so that finished() sees that the run has been stopped
    if (m_pProcess) {         // otherwise none was created, or the last one has been released
        m_pProcess->kill();
        m_pProcess->close();
        while (m_pProcess->waitForFinished(30000)) {
        }
    }
    m_nCurrentRow = 0;
    ui->progressBar->setValue(0);
    DymicUpdateStartButtonIconText(g_bProcess);
    DymicUpdateOutputLineText(g_bProcess);
}

void tovrane::DymicUpdateStartButtonIconText(bool running)
{
    dressToolButton(ui->toolButton_Start, running ? tr("Stop") : tr("Start"), running ? image::stop : image::start);
}

void tovrane::DymicUpdateOutputLineText(bool running)
{
    ui->lineEdit_OutputPath->setReadOnly(running);
}

void tovrane::ClearnInfo()
{
    constexpr int statusColumn = 2;
    QTableWidget *table = ui->tableWidget_Files;
    // The table has no such column. Without this check the items would replace paths in the following rows.
    if (table->columnCount() <= statusColumn) {
        return;
    }
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setItem(row, statusColumn, new QTableWidgetItem(QString()));
    }
}
