// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_folder.h"

#include "engine_log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <cstring>

QByteArray fileContent(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size()) {
        QTest::qFail(qPrintable(QStringLiteral("cannot write ") + path), __FILE__, __LINE__);
    }
}

const QByteArray &ProgramFolder::engineBytes()
{
    static const QByteArray bytes = fileContent(QStringLiteral(QUORRA_STAND_IN_ENGINE));
    return bytes;
}

ProgramFolder::ProgramFolder(Engine engine)
    : m_dir(QDir::tempPath() + QStringLiteral("/quorra-test-XXXXXX"))
    , m_earlierCurrentDir(QDir::currentPath())
{
    m_path = QFileInfo(m_dir.path()).canonicalFilePath();
    if (!m_dir.isValid() || !QDir::setCurrent(m_path)) {
        qFatal("cannot make a temporary folder");
    }
    if (engine == WithEngine) {
        installEngine();
    }
}

ProgramFolder::~ProgramFolder()
{
    // A folder whose permissions were removed by a test could not be deleted.
    QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QDir::setCurrent(m_earlierCurrentDir);
}

QString ProgramFolder::path() const
{
    return m_path;
}

QString ProgramFolder::filePath(const QString &name) const
{
    return m_path + QLatin1Char('/') + name;
}

QString ProgramFolder::makeFolder(const QString &name) const
{
    if (!QDir(m_path).mkpath(name)) {
        QTest::qFail("cannot make a folder", __FILE__, __LINE__);
    }
    return filePath(name);
}

QString ProgramFolder::makePdf(const QString &name, qint64 bytes) const
{
    QString path = filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || !file.resize(bytes)) {
        QTest::qFail(qPrintable(QStringLiteral("cannot make ") + path), __FILE__, __LINE__);
    }
    return path;
}

QStringList ProgramFolder::makePdfs(int count) const
{
    QStringList paths;
    paths.reserve(count);
    for (int i = 1; i <= count; ++i) {
        paths << makePdf(QStringLiteral("in/%1.pdf").arg(i));
    }
    return paths;
}

QString ProgramFolder::enginePath() const
{
    return filePath(QStringLiteral("Qtminw"));
}

void ProgramFolder::installEngine() const
{
    writeFile(enginePath(), engineBytes());
    const auto readAndRun =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(enginePath(), readAndRun | QFile::WriteOwner);
}

void ProgramFolder::removeEngine() const
{
    QFile::remove(enginePath());
}

void ProgramFolder::plan(const QStringList &lines) const
{
    // Renamed atomically: an engine that is starting reads either the old plan or the new one.
    writeFile(filePath(QStringLiteral("engine.plan.new")), lines.join(QLatin1Char('\n')).toUtf8());
    if (std::rename(
            QFile::encodeName(filePath(QStringLiteral("engine.plan.new"))).constData(),
            QFile::encodeName(filePath(QStringLiteral("engine.plan"))).constData())) {
        QTest::qFail("cannot write the plan", __FILE__, __LINE__);
    }
}

void ProgramFolder::release(int run) const
{
    writeFile(filePath(QStringLiteral("engine.release-%1").arg(run)), QByteArray());
}

void ProgramFolder::releaseAll() const
{
    writeFile(filePath(QStringLiteral("engine.release-all")), QByteArray());
}

void ProgramFolder::forgetRuns() const
{
    const QDir dir(m_path);
    const QStringList names = dir.entryList(
        {QStringLiteral("engine.log"), QStringLiteral("engine.count"), QStringLiteral("engine.release-*")});
    for (const QString &name : names) {
        QFile::remove(dir.filePath(name));
    }
}

QList<EngineRun> ProgramFolder::runs() const
{
    QList<EngineRun> list;
    const QByteArray log = fileContent(filePath(QStringLiteral("engine.log")));
    qsizetype at = 0;
    while (at + qsizetype(sizeof(EngineLogHeader)) <= log.size()) {
        EngineLogHeader header{};
        std::memcpy(&header, log.constData() + at, sizeof header);
        at += qsizetype(sizeof header);
        if (at + qsizetype(header.payloadBytes) > log.size()) {
            break; // this record is still being written
        }
        QByteArray payload = log.mid(at, header.payloadBytes);
        at += header.payloadBytes;
        if (header.kind == engineLogStart) {
            payload.chop(1);
            list.append({int(header.run), header.pid, payload.split('\0'), false});
            continue;
        }
        for (EngineRun &run : list) {
            run.ended = run.ended || run.number == int(header.run);
        }
    }
    return list;
}

int ProgramFolder::runCount() const
{
    return int(runs().size());
}

int ProgramFolder::endedCount() const
{
    int count = 0;
    for (const EngineRun &run : runs()) {
        count += run.ended ? 1 : 0;
    }
    return count;
}

QStringList ProgramFolder::inputsOfRuns() const
{
    QStringList names;
    for (const EngineRun &run : runs()) {
        names << QFileInfo(QFile::decodeName(run.arguments.value(run.arguments.size() - 2))).fileName();
    }
    return names;
}

bool ProgramFolder::isAlive(qint64 pid)
{
    const QByteArray stat = fileContent(QStringLiteral("/proc/%1/stat").arg(pid));
    const qsizetype state = stat.lastIndexOf(')') + 2;
    return state > 1 && state < stat.size() && stat.at(state) != 'Z' && stat.at(state) != 'X';
}
