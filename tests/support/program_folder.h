// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayList>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A run of the fake engine, read from its log.
struct EngineRun
{
    int number = 0;
    qint64 pid = 0;
    QByteArrayList arguments; ///< exact bytes, without the program name
    bool ended = false;       ///< false while it runs, and for good when it crashed or was killed
};

/// A temporary folder that serves as the program's folder: it is the current directory while the object exists, so that
/// the settings file and the engine are found in it.
class ProgramFolder
{
public:
    enum Engine { WithEngine, WithoutEngine };

    explicit ProgramFolder(Engine engine = WithEngine);
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder &) = delete;
    ProgramFolder &operator=(const ProgramFolder &) = delete;

    /// The contents of the fake engine, read once; call it before dropping the permission to read the build folder.
    static const QByteArray &engineBytes();

    QString path() const;                          ///< with symbolic links resolved, as getcwd() tells it
    QString filePath(const QString &name) const;   ///< a path inside; the file need not exist
    QString makeFolder(const QString &name) const; ///< makes a folder inside and returns its path
    QString makePdf(const QString &name, qint64 bytes = 2048) const; ///< a sparse file of that size; returns its path
    QStringList makePdfs(int count) const;                           ///< in/1.pdf ... in/<count>.pdf

    QString enginePath() const;
    void installEngine() const;
    void removeEngine() const;
    /// One line per run (see stand_in_engine.cpp); the last line serves all later runs.
    void plan(const QStringList &lines) const;
    void release(int run) const;
    void releaseAll() const;

    /// Resets the run counter to 0; no engine may be running.
    void forgetRuns() const;

    QList<EngineRun> runs() const;
    int runCount() const;
    int endedCount() const;
    /// The input file names (last path part) of all runs, in the order the engine was started.
    QStringList inputsOfRuns() const;
    /// Returns true if a process with this ID exists and is not a zombie.
    static bool isAlive(qint64 pid);

private:
    QTemporaryDir m_dir;
    QString m_path;
    QString m_earlierCurrentDir;
};

/// Returns the contents of a file; empty if it cannot be read.
QByteArray fileContent(const QString &path);
/// Writes a file; on failure, the test fails.
void writeFile(const QString &path, const QByteArray &content);
