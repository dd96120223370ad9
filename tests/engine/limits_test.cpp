// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/limits.h"

#include "base/failure.h"

#include <QTest>

#include <goo/gmem.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quorra;

/// How the engine reports fatal signals. Each case terminates a separate process.
class LimitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void tellsWhyTheProcessEnded_data();
    void tellsWhyTheProcessEnded();
};

namespace {

struct End
{
    int status = -1; ///< exit status, -1 when the process ended otherwise
    QByteArray line;
};

/// Runs the action in a process with the engine's handlers and little memory.
End endOf(const std::function<void()> &action)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return {};
    }
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        const rlimit memory{512U << 20, 512U << 20};
        setrlimit(RLIMIT_AS, &memory);
        limits::catchFatalSignals(ends[1]);
        errno = 0;
        action();
        _exit(0);
    }
    close(ends[1]);
    End end;
    std::array<char, 256> block{};
    for (ssize_t got = 0; (got = read(ends[0], block.data(), block.size())) > 0;) {
        end.line.append(block.data(), got);
    }
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) == child && WIFEXITED(status)) {
        end.status = WEXITSTATUS(status);
    }
    return end;
}

constexpr std::size_t tooMuch = std::size_t{1} << 40;

/// A failed allocation that is not caught, as in a destructor.
void requestTooMuch() noexcept
{
    std::vector<char> memory(tooMuch);
    memory.back() = 1;
}

} // namespace

Q_DECLARE_METATYPE(std::function<void()>)

void LimitsTest::initTestCase()
{
#ifdef QUORRA_SANITIZED
    QSKIP("The sanitizers report fatal signals themselves.");
#endif
}

void LimitsTest::tellsWhyTheProcessEnded_data()
{
    QTest::addColumn<std::function<void()>>("action");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("words");
    const auto row = [](const char *name, const std::function<void()> &action, ExitStatus status, const char *words) {
        QTest::newRow(name) << action << static_cast<int>(status) << QByteArray(words);
    };
    row(
        "the PDF library gets no memory", [] { gfree(gmalloc(tooMuch)); }, ExitStatus::Limit, "more memory");
    row("C++ gets no memory", requestTooMuch, ExitStatus::Limit, "more memory");
    row(
        "the PDF library refuses a size", [] { gfree(gmallocn(INT_MAX, INT_MAX)); }, ExitStatus::CannotOpen,
        "could not process");
    row(
        "an assertion", [] { std::abort(); }, ExitStatus::CannotOpen, "could not process");
    row(
        "processor time", [] { raise(SIGXCPU); }, ExitStatus::Limit, "more processor time");
    row(
        "a wrong address", [] { raise(SIGSEGV); }, ExitStatus::CannotOpen, "damaged");
}

void LimitsTest::tellsWhyTheProcessEnded()
{
    QFETCH(std::function<void()>, action);
    QFETCH(int, status);
    QFETCH(QByteArray, words);
    const End end = endOf(action);
    QCOMPARE(end.status, status);
    QVERIFY2(end.line.startsWith("Qtminw: ") && end.line.contains(words), end.line.constData());
    QCOMPARE(end.line.indexOf('\n'), end.line.size() - 1);
}

QTEST_GUILESS_MAIN(LimitsTest)
#include "limits_test.moc"
