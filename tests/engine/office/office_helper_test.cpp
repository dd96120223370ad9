// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "libreoffice/libreoffice.h"
#include "platform/temp_folder.h"

#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>

using namespace quorra;
using namespace quorra::office;

/// Where LibreOffice is looked for, and what is reported if it, or one of its components, is missing or fails.
class OfficeHelperTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksWhereItIsNamed();
    void looksBesideTheLauncherOnThePath();
    void namesThePackageThatIsMissing_data();
    void namesThePackageThatIsMissing();
    void seesAMissingPart();
    void knowsTheSocketsName();
    void removesSocketsOfKilledRuns();
    void startsAgainWhenAskedTo();
    void avoidsFoldersThatLibreOfficeCannotName_data();
    void avoidsFoldersThatLibreOfficeCannotName();
    void avoidsNamesThatLibreOfficeMisreads();
    void tellsWhatWentWrong_data();
    void tellsWhatWentWrong();
    void endsWhatTakesTooMuchTime();
    void seesThatTheProfileCannotBeWritten_data();
    void seesThatTheProfileCannotBeWritten();
};

namespace {

constexpr std::chrono::seconds timeEnough{60};

void writeScript(const QString &path, const QByteArray &lines)
{
    QFile script(path);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n" + lines);
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// Finds the output folder in the arguments, as $out.
constexpr const char *findFolder = "while [ \"$1\" != --outdir ]; do shift; done\nout=$2\n";

std::string failureOf(const std::function<void()> &action, ExitStatus &status)
{
    try {
        action();
    } catch (const Failure &failure) {
        status = failure.status();
        return failure.what();
    }
    return {};
}

} // namespace

void OfficeHelperTest::looksWhereItIsNamed()
{
    QCOMPARE(officeCandidates("/opt/office", "/usr/bin"), std::vector<std::string>{"/opt/office"});
    QCOMPARE(officeCandidates("", nullptr).front(), std::string("/usr/lib/libreoffice/program/soffice.bin"));
}

void OfficeHelperTest::looksBesideTheLauncherOnThePath()
{
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("program"));
    QVERIFY(QDir().mkdir(program) && QDir().mkdir(folder.filePath(QStringLiteral("bin"))));
    writeScript(program + QStringLiteral("/soffice"), "");
    QVERIFY(QFile::link(program + QStringLiteral("/soffice"), folder.filePath(QStringLiteral("bin/soffice"))));
    const std::vector<std::string> found =
        officeCandidates(nullptr, ("/nowhere:" + folder.path().toStdString() + "/bin").c_str());
    const std::string expected = QFileInfo(program).canonicalFilePath().toStdString() + "/soffice.bin";
    QVERIFY(std::find(found.begin(), found.end(), expected) != found.end());
}

void OfficeHelperTest::namesThePackageThatIsMissing_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<QByteArray>("package");
    QTest::newRow("Writer") << int(Component::Writer) << QByteArrayLiteral("libreoffice-writer-nogui");
    QTest::newRow("Calc") << int(Component::Calc) << QByteArrayLiteral("libreoffice-calc-nogui");
    QTest::newRow("Impress") << int(Component::Impress) << QByteArrayLiteral("libreoffice-impress-nogui");
}

void OfficeHelperTest::namesThePackageThatIsMissing()
{
    QFETCH(int, component);
    QFETCH(QByteArray, package);
    ExitStatus status = ExitStatus::Done;
    const std::string line =
        failureOf([&] { findOffice({"/nowhere/soffice.bin"}, static_cast<Component>(component)); }, status);
    QCOMPARE(status, ExitStatus::Helper);
    QVERIFY2(QByteArray::fromStdString(line).endsWith(package), line.c_str());
    QVERIFY(line.find('\n') == std::string::npos);
}

void OfficeHelperTest::seesAMissingPart()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("program")));
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("share/registry")));
    for (const char *name : {"main.xcd", "writer.xcd"}) {
        writeScript(folder.filePath(QStringLiteral("share/registry/") + QLatin1String(name)), "");
    }
    const QString program = folder.filePath(QStringLiteral("program/soffice.bin"));
    writeScript(program, "");
    QCOMPARE(findOffice({program.toStdString()}, Component::Writer), program.toStdString());
    ExitStatus status = ExitStatus::Done;
    const std::string line = failureOf([&] { findOffice({program.toStdString()}, Component::Calc); }, status);
    QCOMPARE(status, ExitStatus::Helper);
    QVERIFY2(line.find("libreoffice-calc-nogui") != std::string::npos, line.c_str());
}

void OfficeHelperTest::knowsTheSocketsName()
{
    // Taken from a run of LibreOffice with this profile.
    QCOMPARE(socketName("file:///tmp/example/profile"), std::string("SingleOfficeIPC_1dddcdb741d4c8b6199b77efb0dcf34"));
}

void OfficeHelperTest::removesSocketsOfKilledRuns()
{
    QProcess gone;
    gone.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("exit")});
    QVERIFY(gone.waitForStarted());
    const QString pid = QString::number(gone.processId());
    QVERIFY(gone.waitForFinished());
    const QTemporaryDir temp;
    const QByteArray inherited = qgetenv("TMPDIR");
    qputenv("TMPDIR", temp.path().toUtf8());
    const QString folder = temp.filePath(QStringLiteral("qtminw-%1-killed").arg(pid));
    QVERIFY(QDir().mkdir(folder));
    const QString name = QString::fromStdString(socketName("file://" + folder.toStdString() + "/profile"));
    // Of users with and without an entry in the password database, and of another profile.
    QFile known(QStringLiteral("/tmp/OSL_PIPE_4711_") + name);
    QFile unknown(QStringLiteral("/tmp/OSL_PIPE_") + name);
    QFile other(QStringLiteral("/tmp/OSL_PIPE_") + name + QStringLiteral("0"));
    const auto removeAll = qScopeGuard([&] {
        for (QFile *const each : {&known, &unknown, &other}) {
            each->remove();
        }
        inherited.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", inherited);
    });
    for (QFile *const each : {&known, &unknown, &other}) {
        QVERIFY(each->open(QIODevice::WriteOnly));
    }
    sweepSockets();
    QVERIFY(!known.exists());
    QVERIFY(!unknown.exists());
    QVERIFY(other.exists());
}

void OfficeHelperTest::startsAgainWhenAskedTo()
{
    const QTemporaryDir tools;
    const QString program = tools.filePath(QStringLiteral("soffice.bin"));
    writeScript(
        program, QByteArray(findFolder) +
                     "if [ ! -e started ]; then : > started; exit 81; fi\nmkdir $out\necho made > $out/in.doc\n");
    const TempFolder folder;
    const std::string made =
        exportFile(folder, program.toStdString(), folder.path() + "/in.xml", ".doc", 1, timeEnough);
    QCOMPARE(made, folder.path() + "/out/in.doc");
}

void OfficeHelperTest::avoidsFoldersThatLibreOfficeCannotName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("semicolon") << QStringLiteral("a;b");
    QTest::newRow("vertical bar") << QStringLiteral("a|b");
}

/// LibreOffice reads the output folder from a list separated by ; and |.
void OfficeHelperTest::avoidsFoldersThatLibreOfficeCannotName()
{
    QFETCH(QString, name);
    const QTemporaryDir around;
    QVERIFY(QDir(around.path()).mkdir(name));
    const QString program = around.filePath(QStringLiteral("soffice.bin"));
    writeScript(program, QByteArray(findFolder) + "out=${out%%[;|]*}\nmkdir -p $out\necho made > $out/in.doc\n");
    const QByteArray inherited = qgetenv("TMPDIR");
    qputenv("TMPDIR", around.filePath(name).toUtf8());
    const auto restore = qScopeGuard([&] { inherited.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", inherited); });
    const TempFolder folder;
    ExitStatus status = ExitStatus::Done;
    const std::string line = failureOf(
        [&] { exportFile(folder, program.toStdString(), folder.path() + "/in.xml", ".doc", 1, timeEnough); }, status);
    QVERIFY2(line.empty(), line.c_str());
}

/// With a locale that is not one of UTF-8, LibreOffice takes the bytes of such a name for other letters.
void OfficeHelperTest::avoidsNamesThatLibreOfficeMisreads()
{
    const QTemporaryDir around;
    const QString name = QStringLiteral("caf\u00e9");
    QVERIFY(QDir(around.path()).mkdir(name));
    const std::array<const char *, 3> variables = {"TMPDIR", "LC_ALL", "LANG"};
    std::array<QByteArray, 3> inherited;
    std::transform(
        variables.begin(), variables.end(), inherited.begin(), [](const char *each) { return qgetenv(each); });
    const auto restore = qScopeGuard([&] {
        for (std::size_t i = 0; i < variables.size(); ++i) {
            inherited[i].isNull() ? qunsetenv(variables[i]) : qputenv(variables[i], inherited[i]);
        }
    });
    const QByteArray folder = around.filePath(name).toUtf8();
    qputenv("TMPDIR", folder);
    qputenv("LC_ALL", "C");
    QVERIFY(!QByteArray::fromStdString(TempFolder().path()).startsWith(folder));
    qputenv("LC_ALL", "de_AT.utf8");
    QVERIFY(QByteArray::fromStdString(TempFolder().path()).startsWith(folder));
    qputenv("LC_ALL", "");
    qputenv("LANG", "en_US.UTF-8");
    qunsetenv("LC_CTYPE");
    QVERIFY(QByteArray::fromStdString(TempFolder().path()).startsWith(folder));
}

void OfficeHelperTest::tellsWhatWentWrong_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("no file") << QByteArrayLiteral("exit 0\n") << QByteArrayLiteral("wrote no file");
    QTest::newRow("empty file") << QByteArray(findFolder) + "mkdir $out\n: > $out/in.doc\n"
                                << QByteArrayLiteral("wrote no file");
    QTest::newRow("status") << QByteArrayLiteral("exit 3\n") << QByteArrayLiteral("exit status 3");
    QTest::newRow("for ever again") << QByteArrayLiteral("exit 81\n") << QByteArrayLiteral("exit status 81");
    QTest::newRow("signal") << QByteArrayLiteral("kill -9 $$\n") << QByteArrayLiteral("signal 9");
}

void OfficeHelperTest::tellsWhatWentWrong()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, expected);
    const QTemporaryDir tools;
    const QString program = tools.filePath(QStringLiteral("soffice.bin"));
    writeScript(program, script);
    const TempFolder folder;
    ExitStatus status = ExitStatus::Done;
    const std::string line = failureOf(
        [&] { exportFile(folder, program.toStdString(), folder.path() + "/in.xml", ".doc", 1, timeEnough); }, status);
    QCOMPARE(status, ExitStatus::Helper);
    QVERIFY2(QByteArray::fromStdString(line).contains(expected), line.c_str());
}

void OfficeHelperTest::endsWhatTakesTooMuchTime()
{
    const QTemporaryDir tools;
    const QString program = tools.filePath(QStringLiteral("soffice.bin"));
    writeScript(program, "while :; do :; done\n");
    const TempFolder folder;
    ExitStatus status = ExitStatus::Done;
    const std::string line = failureOf(
        [&] {
            exportFile(folder, program.toStdString(), folder.path() + "/in.xml", ".doc", 1, std::chrono::seconds{1});
        },
        status);
    QCOMPARE(status, ExitStatus::Limit);
    QVERIFY2(line.find("processor time") != std::string::npos, line.c_str());
}

void OfficeHelperTest::seesThatTheProfileCannotBeWritten_data()
{
    QTest::addColumn<bool>("full");
    QTest::newRow("a file in the way of its folder") << false;
    QTest::newRow("no space left") << true;
}

void OfficeHelperTest::seesThatTheProfileCannotBeWritten()
{
    QFETCH(bool, full);
    const TempFolder folder;
    const QString profile = QString::fromStdString(folder.path() + "/profile");
    if (full) {
        QVERIFY(QDir().mkpath(profile + QStringLiteral("/user")));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), profile + QStringLiteral("/user/registrymodifications.xcu")));
    } else {
        writeScript(profile, "");
    }
    const QTemporaryDir tools;
    const QString program = tools.filePath(QStringLiteral("soffice.bin"));
    writeScript(program, QByteArray(findFolder) + "mkdir $out\necho made > $out/in.doc\n");
    ExitStatus status = ExitStatus::Done;
    const std::string line = failureOf(
        [&] { exportFile(folder, program.toStdString(), folder.path() + "/in.xml", ".doc", 1, timeEnough); }, status);
    QCOMPARE(status, ExitStatus::CannotWrite);
    QVERIFY2(QByteArray::fromStdString(line).contains(full ? "No space left" : "cannot write"), line.c_str());
}

QTEST_APPLESS_MAIN(OfficeHelperTest)
#include "office_helper_test.moc"
