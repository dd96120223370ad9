// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayList>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// One run of the stand-in engine as its log tells it.
struct EngineRun
{
    int number = 0;
    qint64 pid = 0;
    QByteArrayList arguments; ///< exact bytes, without the program name
    bool ended = false;       ///< false while it runs, and for good when it crashed or was killed
};

/// A temporary folder that plays the folder of the program: it is the current directory for as long as the object
/// lives, so that the settings file and the engine are found in it.
class ProgramFolder
{
public:
    enum Engine { WithEngine, WithoutEngine };

    explicit ProgramFolder(Engine engine = WithEngine);
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder &) = delete;
    ProgramFolder &operator=(const ProgramFolder &) = delete;

    /// The stand-in engine's bytes, read once; call it before giving up the right to read the build folder.
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

    /// Starts the numbers of runs at 0 again; no engine may be running.
    void forgetRuns() const;

    QList<EngineRun> runs() const;
    int runCount() const;
    int endedCount() const;
    /// The input file names (last path part) of all runs, in the order the engine was started.
    QStringList inputsOfRuns() const;
    /// True when a process of that id exists and is not a zombie.
    static bool isAlive(qint64 pid);

private:
    QTemporaryDir m_dir;
    QString m_path;
    QString m_earlierCurrentDir;
};

/// Whole content of a file; empty when it cannot be read.
QByteArray fileContent(const QString &path);
/// Writes a file; the test fails when that is not possible.
void writeFile(const QString &path, const QByteArray &content);
