// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/guards.h"

#include "attempts.h"
#include "convert/guard_rules.h"
#include "platform/memory_left.h"
#include "platform/output_file.h"
#include "platform/system_files.h"
#include "platform/temp_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

using namespace quorra;
using guards::Programs;

/// A process locks itself in with the rules of a conversion, and then tries what it must not be able to do, and what it
/// must.
class GuardsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void isActive();
    void refuses_data();
    void refuses();
    void allows_data();
    void allows();
    void followsTheConfigurationOfFonts();
    void findsWhatRunsAProgram();

private:
    std::string path(const char *name) const { return m_folder->filePath(QLatin1String(name)).toStdString(); }
    guards::Active lockIn(Programs programs) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    attempts::Place m_place;
    Options m_options;
    int m_landlock = 0; ///< version of the kernel's Landlock
    int m_listener = -1;
    int m_localListener = -1;
};

namespace {

/// Asks the kernel without the functions under test.
int kernelsLandlock()
{
    return static_cast<int>(std::max(0L, syscall(SYS_landlock_create_ruleset, nullptr, 0, 1)));
}

bool kernelHasSeccomp()
{
    return prctl(PR_GET_SECCOMP, 0, 0, 0, 0) >= 0;
}

void createFile(const std::string &path)
{
    QFile file(QString::fromStdString(path));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("x");
}

template <typename Address>
int listenerAt(Address &address, int family)
{
    const int number = socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    socklen_t size = sizeof address;
    const bool good = bind(number, reinterpret_cast<sockaddr *>(&address), size) == 0 && listen(number, 99) == 0 &&
                      getsockname(number, reinterpret_cast<sockaddr *>(&address), &size) == 0;
    return good ? number : -1;
}

bool contains(const guards::FileRules &rules, const std::string &path)
{
    return std::any_of(rules.begin(), rules.end(), [&](const guards::FileRule &rule) { return rule.path == path; });
}

} // namespace

Q_DECLARE_METATYPE(const attempts::Attempt *)
Q_DECLARE_METATYPE(quorra::guards::Programs)

void GuardsTest::initTestCase()
{
#ifndef QUORRA_GUARDS
    std::puts("not run: this build has no guards (QUORRA_GUARDS is off)");
    std::exit(77);
#endif
    m_landlock = kernelsLandlock();
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char *name : {"home", "home/.fonts", "in", "out", "beside", "program"}) {
        QVERIFY(QDir(m_folder->path()).mkdir(QLatin1String(name)));
    }
    for (const char *name : {"in/input.pdf", "home/secret", "home/.fonts/font.ttf"}) {
        createFile(path(name));
    }
    qputenv("HOME", QByteArray::fromStdString(path("home")));
    qputenv("TMPDIR", m_folder->path().toUtf8());
    m_options.inputPath = path("in/input.pdf");
    m_options.outputPath = path("out/output.txt");

    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_listener = listenerAt(address, AF_INET);
    sockaddr_un local{};
    local.sun_family = AF_UNIX;
    path("socket").copy(local.sun_path, sizeof local.sun_path - 1);
    m_localListener = listenerAt(local, AF_UNIX);
    QVERIFY(m_listener >= 0 && m_localListener >= 0);
    m_place = {path("home/secret"), path("beside"), path("socket"), ntohs(address.sin_port)};
}

void GuardsTest::cleanupTestCase()
{
    close(m_listener);
    close(m_localListener);
}

guards::Active GuardsTest::lockIn(Programs programs) const
{
    return guards::lockIn(guardRules(m_options, programs == Programs::None ? "" : path("program")), programs);
}

/// A guard that the kernel has must be in force: this is never skipped.
void GuardsTest::isActive()
{
    const attempts::Attempt lock{"lock in", attempts::Filter, false, [this](const attempts::Place &) {
                                     const guards::Active active = lockIn(Programs::None);
                                     return (active.landlock == m_landlock ? 0 : 1) +
                                            (active.seccomp == kernelHasSeccomp() ? 0 : 2);
                                 }};
    QCOMPARE(attempts::resultOf(lock, m_place), 0);
}

void GuardsTest::refuses_data()
{
    QTest::addColumn<const attempts::Attempt *>("attempt");
    QTest::addColumn<Programs>("programs");
    for (const attempts::Attempt &attempt : attempts::all()) {
        QTest::addRow("%s", attempt.name) << &attempt << Programs::None;
        QTest::addRow("%s, before an export", attempt.name) << &attempt << Programs::ByFileRules;
    }
}

void GuardsTest::refuses()
{
    QFETCH(const attempts::Attempt *, attempt);
    QFETCH(Programs, programs);
    if (attempt->needs > m_landlock) {
        QSKIP("The kernel's Landlock cannot refuse this.");
    }
    const int without = attempts::resultOf(*attempt, m_place);
    QVERIFY2(!attempt->works || without == 0, qPrintable(QString::number(without)));
    const int inside = attempts::resultOf(*attempt, m_place, [&] { lockIn(programs); });
    QVERIFY2(inside > 0, qPrintable(QString::number(inside)));
}

void GuardsTest::allows_data()
{
    QTest::addColumn<std::function<bool()>>("action");
    const auto row = [](const char *name, const std::function<bool()> &action) { QTest::newRow(name) << action; };
    row("read the input", [this] { return QFile(QString::fromStdString(m_options.inputPath)).open(QFile::ReadOnly); });
    row("write and replace the output", [this] {
        for (int i = 0; i < 2; ++i) {
            OutputFile file(m_options.outputPath);
            file.write("text");
            file.commit();
        }
        syncFolderOf(m_options.outputPath);
        return QFile::exists(QString::fromStdString(m_options.outputPath));
    });
    row("read a font of the user",
        [this] { return QFile(QString::fromStdString(path("home/.fonts/font.ttf"))).open(QFile::ReadOnly); });
    row("read a library", [] { return !QDir(QStringLiteral("/usr/lib")).entryList().isEmpty(); });
    row("start a thread", [] {
        bool ran = false;
        std::thread([&ran] { ran = true; }).join();
        return ran;
    });
    row("see its memory", [] { return memoryLeft() > 0; });
    row("use random numbers", [] { return QFile(QStringLiteral("/dev/urandom")).open(QFile::ReadOnly); });
    row("throw output away", [] { return QFile(QStringLiteral("/dev/null")).open(QFile::WriteOnly); });
    row("signal itself", [] { return kill(getpid(), 0) == 0; });
}

Q_DECLARE_METATYPE(std::function<bool()>)

void GuardsTest::allows()
{
    QFETCH(std::function<bool()>, action);
    const attempts::Attempt attempt{
        "allowed", attempts::Filter, true, [&action](const attempts::Place &) { return action() ? 0 : 1; }};
    for (const Programs programs : {Programs::None, Programs::ByFileRules}) {
        QCOMPARE(attempts::resultOf(attempt, m_place, [&] { lockIn(programs); }), 0);
    }
}

void GuardsTest::followsTheConfigurationOfFonts()
{
    const QTemporaryDir folder;
    const auto write = [&folder](const char *name, const QByteArray &text) {
        QFile file(folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<fontconfig>" + text + "</fontconfig>");
    };
    QVERIFY(
        QDir(folder.path()).mkpath(QStringLiteral("elsewhere/far")) &&
        QDir(folder.path()).mkpath(QStringLiteral("more")));
    QVERIFY(QFile::link(
        folder.filePath(QStringLiteral("elsewhere/far")), folder.filePath(QStringLiteral("elsewhere/link"))));
    write("fonts.conf", "<!-- <dir>/commented</dir> --><include>more</include><include>fonts.conf</include>");
    write("more/one.conf", "<dir>" + folder.filePath(QStringLiteral("elsewhere")).toUtf8() + "</dir><dir>~/mine</dir>");
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("home/mine")));
    qputenv("FONTCONFIG_PATH", folder.path().toUtf8());
    const guards::FileRules rules = guards::fontFiles();
    qunsetenv("FONTCONFIG_PATH");
    const std::string base = folder.path().toStdString();
    for (const std::string &expected :
         {base + "/fonts.conf", base + "/more", base + "/elsewhere", base + "/elsewhere/link", path("home/mine"),
          path("home/.fonts")}) {
        QVERIFY2(contains(rules, expected), expected.c_str());
    }
    QVERIFY(!contains(rules, "/commented") && !contains(rules, path("home")));
}

void GuardsTest::findsWhatRunsAProgram()
{
    const guards::FileRules rules = guards::programFiles("/proc/self/exe");
    QVERIFY(!guards::isScript("/proc/self/exe"));
    QCOMPARE(rules.size(), std::size_t{2});
    QVERIFY2(rules.back().path.find("ld-") != std::string::npos, rules.back().path.c_str());
    const std::string script = path("script");
    {
        QFile file(QString::fromStdString(script));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#! /bin/sh -e\nexit 0\n");
    }
    QVERIFY(guards::isScript(script));
    QVERIFY(contains(guards::programFiles(script), "/bin/sh"));
    QVERIFY(guards::programFiles(path("nothing")).size() == 1);
}

QTEST_GUILESS_MAIN(GuardsTest)
#include "guards_test.moc"
