// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/engine_process.h"

#include <QProcess>
#include <QSet>

namespace {

/// All existing process objects. Never destroyed: a window may be closed while its engine is running, and the process
/// object must then outlive the window and the application, because its destructor would kill the engine. The set keeps
/// it reachable.
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
    // The channels are separate and the process is started for reading and writing, but nothing reads the engine's
    // output. A full pipe that nobody reads would block the engine, and QProcess, which does read it, would keep
    // everything in memory. Redirecting both channels to the null device avoids this.
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    return process;
}
