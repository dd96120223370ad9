// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/child_process.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <functional>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#include <sys/syscall.h>
#endif

using namespace quorra;
using namespace std::chrono_literals;

#ifdef __linux__
namespace {

int groupKills = 0;
bool leaderWasThere = false;

} // namespace

/// Replaces the C library's function: checks whether the ID of a killed group still belongs to its leader, which may be
/// a zombie.
extern "C" int kill(pid_t target, int number) noexcept
{
    if (target < 0 && number == SIGKILL) {
        ++groupKills;
        leaderWasThere = syscall(SYS_kill, -target, 0) == 0;
    }
    return static_cast<int>(syscall(SYS_kill, target, number));
}
#endif

/// Runs the same tests with the functions of the platform and with the portable ones.
class ChildProcessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void givesTheExitStatus_data();
    void givesTheExitStatus();
    void tellsTheSignal();
    void tellsThatItCouldNotStart_data();
    void tellsThatItCouldNotStart();
    void endsAtTheWallLimit();
    void killsWhatTheCommandStarted_data();
    void killsWhatTheCommandStarted();
    void killsTheGroupBeforeItsNumberIsFree_data();
    void killsTheGroupBeforeItsNumberIsFree();
    void leavesNoProcessOfItsOwn();
    void diesWithItsParent();
    void setsEnvironmentAndFolder();
    void limitsMemoryAndTime();
    void keepsTheStreamsAway();
    void takesWritingAwayFromOthersOnly();

private:
    QString file(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QByteArray content(const char *name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

ChildCommand shell(const QString &folder, const std::string &script)
{
    ChildCommand command;
    command.program = "/bin/sh";
    command.arguments = {"-c", script};
    command.workingFolder = folder.toStdString();
    return command;
}

bool becomesTrue(const std::function<bool()> &condition)
{
    for (const QDeadlineTimer deadline(60s); !deadline.hasExpired(); QTest::qSleep(2)) {
        if (condition()) {
            return true;
        }
    }
    return condition();
}

/// Atomically writes the shell's process ID to the file.
std::string noteNumber(const std::string &name)
{
    return "echo $$ > " + name + ".part; mv " + name + ".part " + name + "; ";
}

/// The process has exited; its dying parent may have reaped it.
bool isGone(pid_t process)
{
    return becomesTrue([process] {
        return waitpid(process, nullptr, WNOHANG) == process || (kill(process, 0) != 0 && errno == ESRCH);
    });
}

} // namespace

void ChildProcessTest::initTestCase()
{
#ifdef __linux__
    // Orphaned processes become children of this one, which can then see when they exit.
    QCOMPARE(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
#else
    QSKIP("adopting processes is not possible here");
#endif
}

void ChildProcessTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void ChildProcessTest::cleanup()
{
    // Killed processes may take a while to be reparented.
    QVERIFY(becomesTrue([] { return waitpid(-1, nullptr, WNOHANG) < 0; }));
    m_folder.reset();
}

QByteArray ChildProcessTest::content(const char *name) const
{
    QFile read(file(name));
    return read.open(QIODevice::ReadOnly) ? read.readAll().trimmed() : QByteArray("not there");
}

void ChildProcessTest::givesTheExitStatus_data()
{
    QTest::addColumn<int>("status");
    for (const int status : {0, 1, 81, 126, 255}) {
        QTest::addRow("%d", status) << status;
    }
}

void ChildProcessTest::givesTheExitStatus()
{
    QFETCH(int, status);
    const ChildResult result = runChild(shell(m_folder->path(), "exit " + std::to_string(status)));
    QCOMPARE(result.end, ChildEnd::Exited);
    QCOMPARE(result.status, status);
}

void ChildProcessTest::tellsTheSignal()
{
    for (const int number : {SIGABRT, SIGKILL, SIGTERM}) {
        const ChildResult result = runChild(shell(m_folder->path(), "kill -" + std::to_string(number) + " $$"));
        QCOMPARE(result.end, ChildEnd::Signalled);
        QCOMPARE(result.status, number);
    }
}

void ChildProcessTest::tellsThatItCouldNotStart_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("folder");
    QTest::newRow("no such program") << QStringLiteral("/nowhere/program") << QString();
    QTest::newRow("no program") << QStringLiteral("/dev/null") << QString();
    QTest::newRow("no such folder") << QStringLiteral("/bin/sh") << QStringLiteral("/nowhere");
}

void ChildProcessTest::tellsThatItCouldNotStart()
{
    QFETCH(QString, program);
    QFETCH(QString, folder);
    ChildCommand command;
    command.program = program.toStdString();
    command.workingFolder = folder.toStdString();
    QCOMPARE(runChild(command).end, ChildEnd::NotStarted);
}

void ChildProcessTest::endsAtTheWallLimit()
{
    // A child that ignores all signals that can be ignored.
    ChildCommand command = shell(m_folder->path(), "trap '' TERM INT HUP; while :; do sleep 1; done");
    command.wallLimit = 200ms;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(runChild(command).end, ChildEnd::TimedOut);
    QVERIFY(timer.elapsed() >= 200);
}

void ChildProcessTest::killsWhatTheCommandStarted_data()
{
    QTest::addColumn<bool>("inTime");
    QTest::newRow("after its end") << true;
    QTest::newRow("at the wall limit") << false;
}

void ChildProcessTest::killsWhatTheCommandStarted()
{
    QFETCH(bool, inTime);
    const std::string grandchild = "sh -c '" + noteNumber("grandchild") + "exec sleep 600' & ";
    const std::string wait = "while [ ! -e grandchild ]; do sleep 0.01; done; ";
    ChildCommand command = shell(m_folder->path(), grandchild + wait + (inTime ? "exit 3" : ": > ready; sleep 600"));
    if (!inTime) {
        command.wallLimit = 2s;
    }
    const ChildResult result = runChild(command);
    QCOMPARE(result.end, inTime ? ChildEnd::Exited : ChildEnd::TimedOut);
    const pid_t grandchildNumber = content("grandchild").toInt();
    QVERIFY(grandchildNumber > 0);
    QVERIFY(isGone(grandchildNumber));
}

void ChildProcessTest::killsTheGroupBeforeItsNumberIsFree_data()
{
    QTest::addColumn<bool>("inTime");
    QTest::newRow("after its end") << true;
    QTest::newRow("at the wall limit") << false;
}

void ChildProcessTest::killsTheGroupBeforeItsNumberIsFree()
{
#ifdef __linux__
    QFETCH(bool, inTime);
    groupKills = 0;
    ChildCommand command = shell(m_folder->path(), inTime ? "exit 0" : "sleep 600");
    if (!inTime) {
        command.wallLimit = 100ms;
    }
    runChild(command);
    QCOMPARE(groupKills, 1);
    QVERIFY(leaderWasThere);
#endif
}

void ChildProcessTest::leavesNoProcessOfItsOwn()
{
    QCOMPARE(runChild(shell(m_folder->path(), "exit 0")).end, ChildEnd::Exited);
    // Neither the command nor its watcher.
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void ChildProcessTest::diesWithItsParent()
{
    const pid_t parent = fork();
    if (parent == 0) {
        // Twice, like a command that requests a restart.
        runChild(shell(m_folder->path(), "exit 0"));
        runChild(shell(m_folder->path(), noteNumber("child") + "exec sleep 600"));
        _exit(0);
    }
    QVERIFY(parent > 0);
    QVERIFY(becomesTrue([this] { return QFile::exists(file("child")); }));
    const pid_t child = content("child").toInt();
    QVERIFY(child > 0);
    kill(parent, SIGKILL);
    QVERIFY(isGone(parent));
    QVERIFY(isGone(child));
}

void ChildProcessTest::setsEnvironmentAndFolder()
{
    qputenv("QUORRA_KEPT", "kept");
    qputenv("QUORRA_REPLACED", "inherited");
    ChildCommand command = shell(
        m_folder->path(),
        "echo $QUORRA_KEPT $QUORRA_REPLACED $QUORRA_NEW $QUORRA > variables; env | grep -c ^QUORRA_REPL > count");
    command.environment = {"QUORRA_REPLACED=own", "QUORRA_NEW=new=value", "QUORRA=short"};
    QCOMPARE(runChild(command).end, ChildEnd::Exited);
    QCOMPARE(content("variables"), QByteArray("kept own new=value short"));
    QCOMPARE(content("count"), QByteArray("1"));
    qunsetenv("QUORRA_KEPT");
    qunsetenv("QUORRA_REPLACED");
}

void ChildProcessTest::limitsMemoryAndTime()
{
    ChildCommand command = shell(m_folder->path(), "ulimit -v > memory; ulimit -t > time");
    command.addressSpaceBytes = 1ULL << 30;
    command.cpuSeconds = 17;
    QCOMPARE(runChild(command).end, ChildEnd::Exited);
    QCOMPARE(content("memory"), QByteArray::number(1 << 20));
    QCOMPARE(content("time"), QByteArray("17"));
}

void ChildProcessTest::keepsTheStreamsAway()
{
    const std::string check = "for s in 0 1 2; do [ /dev/fd/$s -ef /dev/null ] || exit 1; done; cat > read";
    const ChildResult result = runChild(shell(m_folder->path(), check));
    QCOMPARE(result.end, ChildEnd::Exited);
    QCOMPARE(result.status, 0);
    QCOMPARE(content("read"), QByteArray());
}

void ChildProcessTest::takesWritingAwayFromOthersOnly()
{
    const mode_t before = umask(002);
    const ChildResult result = runChild(shell(m_folder->path(), ": > made"));
    umask(0077);
    const ChildResult strict = runChild(shell(m_folder->path(), ": > strict"));
    umask(before);
    QCOMPARE(result.end, ChildEnd::Exited);
    QCOMPARE(strict.end, ChildEnd::Exited);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(file("made")) & others, QFile::ReadGroup | QFile::ReadOther);
    QCOMPARE(QFile::permissions(file("strict")) & others, QFile::Permissions());
}

QTEST_GUILESS_MAIN(ChildProcessTest)
#include "child_process_test.moc"
