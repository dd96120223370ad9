// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/engine_process.h"

#include <QProcess>
#include <QSet>

namespace {

/// Every process object that still exists. Never destroyed: a window may be closed while its engine works on a file,
/// and the object must then outlive window and application, since its destructor would kill the engine. Held here it
/// stays reachable.
QSet<QProcess *> &existingProcesses()
{
    static auto *const processes = new QSet<QProcess *>;
    return *processes;
}

} // namespace

QProcess *makeEngineProcess()
{
    auto *process = new QProcess;
    existingProcesses().insert(process);
    QObject::connect(process, &QObject::destroyed, process, [process]() { existingProcesses().remove(process); });
    QObject::connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) { // there will be no finished()
            process->deleteLater();
        }
    });
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    // The channels are separate and the process is started for reading and writing, but nothing reads what the engine
    // prints. A pipe that nobody reads would block the engine when it is full, and QProcess, which does read it, would
    // keep all of it in memory: with the null device behind both channels neither happens.
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    return process;
}
