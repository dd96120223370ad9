// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/memory_left.h"
#include "platform/worker_pool.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

using namespace quorra;

namespace {

constexpr std::uint64_t megaByte = 1 << 20;
constexpr int skipped = 77;
constexpr uid_t userWithoutProcesses = 64321;

/// Blocks until a number of threads have arrived.
class Meeting
{
public:
    explicit Meeting(int count) : m_missing(count) {}

    void wait()
    {
        std::unique_lock lock(m_mutex);
        if (--m_missing <= 0) {
            m_all.notify_all();
        }
        m_all.wait(lock, [this] { return m_missing <= 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_all;
    int m_missing;
};

/// The sum of the positions 1 to 100 and the number of threads that shared them.
struct Shared
{
    std::atomic<int> sum{0};
    std::atomic<int> threads{0};
};

void shareHundredPages(const PageSource &next, Shared &shared)
{
    ++shared.threads;
    while (const int position = next()) {
        shared.sum += position;
    }
}

/// Runs as a separate process with a limit on its threads, including this one.
int runUnderLimit(int mostThreads)
{
    const rlimit limit{static_cast<rlim_t>(mostThreads), static_cast<rlim_t>(mostThreads)};
    // The limit applies to all processes of a user, but not to root.
    if (setrlimit(RLIMIT_NPROC, &limit) != 0 || (geteuid() == 0 && setuid(userWithoutProcesses) != 0)) {
        return skipped;
    }
    // The calling thread is last. Until then the others wait, so that none replaces one that has exited.
    const std::thread::id caller = std::this_thread::get_id();
    std::atomic<bool> allStarted{false};
    Shared shared;
    runPool(4, 100, [&](const PageSource &next) {
        if (std::this_thread::get_id() == caller) {
            allStarted = true;
            allStarted.notify_all();
        } else {
            allStarted.wait(false);
        }
        shareHundredPages(next, shared);
    });
    std::printf("%d %d", shared.threads.load(), shared.sum.load());
    std::fflush(stdout);
    _exit(0); // the leak checker would need a further thread
}

} // namespace

class CorePagePoolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { assumeProcessors(4); }
    void cleanup() { assumeProcessors(0); }

    void doesTheWorkOnceForEachPage_data()
    {
        QTest::addColumn<int>("pages");
        QTest::newRow("none") << 0;
        QTest::newRow("one") << 1;
        QTest::newRow("few, in one thread") << 5;
        QTest::newRow("many, in several threads") << 500;
    }

    void doesTheWorkOnceForEachPage()
    {
        QFETCH(int, pages);
        std::vector<std::atomic<int>> done(static_cast<std::size_t>(pages));
        forEachPage(pages, [&done](int page) { ++done.at(static_cast<std::size_t>(page)); });
        for (const std::atomic<int> &times : done) {
            QCOMPARE(times.load(), 1);
        }
    }

    void worksOnManyPagesInSeveralThreads()
    {
        QCOMPARE(poolSize(500), 4);
        Meeting meeting(4);
        std::mutex mutex;
        std::set<std::thread::id> threads;
        forEachPage(500, [&](int page) {
            if (page < 4) { // these are four threads, or the meeting never ends
                meeting.wait();
            }
            const std::lock_guard lock(mutex);
            threads.insert(std::this_thread::get_id());
        });
        QCOMPARE(threads.size(), std::size_t{4});
        QCOMPARE(threads.count(std::this_thread::get_id()), std::size_t{1});
    }

    void throwsTheFailureOfAPage()
    {
        const auto failing = [](int page) {
            if (page == 3) {
                throw std::runtime_error("page 3");
            }
        };
        for (const int pages : {5, 500}) {
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, forEachPage(pages, failing));
        }
    }

    void givesNoPageAfterAFailure()
    {
        std::atomic<int> done = 0;
        const auto failing = [&done](const PageSource &next) {
            if (next() == 1) {
                throw std::runtime_error("page 1");
            }
            while (next() != 0) {
                ++done;
            }
        };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, runPool(1, 1000, failing));
        QCOMPARE(done.load(), 0);
    }

    void sharesThePagesBetweenThreads()
    {
        Shared shared;
        runPool(3, 100, [&shared](const PageSource &next) { shareHundredPages(next, shared); });
        QCOMPARE(shared.threads.load(), 3);
        QCOMPARE(shared.sum.load(), 5050);
    }

    void goesOnWithTheThreadsThatCanBeStarted()
    {
        for (const int most : {1, 2, 3}) {
            QProcess limited;
            limited.start(
                QCoreApplication::applicationFilePath(), {QStringLiteral("--most-threads"), QString::number(most)});
            QVERIFY(limited.waitForFinished());
            QCOMPARE(limited.exitStatus(), QProcess::NormalExit);
            if (limited.exitCode() == skipped) {
                QSKIP("not run: the number of threads cannot be limited here");
            }
            QCOMPARE(limited.exitCode(), 0);
            const QList<QByteArray> answer = limited.readAllStandardOutput().split(' ');
            QCOMPARE(answer.size(), 2);
            // An ordinary user has other processes, and sanitizers have additional threads.
            QVERIFY(answer[0].toInt() >= 1 && answer[0].toInt() <= most);
            QCOMPARE(answer[1].toInt(), 5050);
        }
    }

    void hasNoMoreThreadsThanPagesProcessorsAndMemoryAllow_data()
    {
        QTest::addColumn<int>("pages");
        QTest::addColumn<int>("processors");
        QTest::addColumn<int>("megaBytesLeft");
        QTest::addColumn<int>("perThread");
        QTest::addColumn<int>("shared");
        QTest::addColumn<int>("threads");
        QTest::newRow("no pages") << 0 << 8 << 800 << 0 << 0 << 1;
        QTest::newRow("three pages for each of two") << 7 << 8 << 800 << 0 << 0 << 1;
        QTest::newRow("four pages for each of two") << 8 << 8 << 800 << 0 << 0 << 2;
        QTest::newRow("four at most") << 500 << 64 << 800 << 0 << 0 << 4;
        QTest::newRow("two processors") << 500 << 2 << 800 << 0 << 0 << 2;
        QTest::newRow("unknown processors") << 500 << 0 << 800 << 0 << 0 << 1;
        QTest::newRow("memory for two") << 500 << 8 << 200 << 0 << 0 << 2;
        QTest::newRow("memory for three of large pages") << 500 << 8 << 900 << 200 << 0 << 3;
        QTest::newRow("memory for one of the largest pages") << 500 << 8 << 900 << 500 << 0 << 1;
        QTest::newRow("shared memory") << 500 << 8 << 800 << 0 << 600 << 2;
        QTest::newRow("no memory left") << 500 << 8 << 0 << 0 << 0 << 1;
        QTest::newRow("more shared than left") << 500 << 8 << 100 << 0 << 600 << 1;
    }

    void hasNoMoreThreadsThanPagesProcessorsAndMemoryAllow()
    {
        QFETCH(int, pages);
        QFETCH(int, processors);
        QFETCH(int, megaBytesLeft);
        QFETCH(int, perThread);
        QFETCH(int, shared);
        QFETCH(int, threads);
        const auto bytes = [](int megaBytes) { return static_cast<std::uint64_t>(megaBytes) * megaByte; };
        QCOMPARE(threadsFor(pages, processors, bytes(megaBytesLeft), {bytes(perThread), bytes(shared)}), threads);
    }

    void knowsHowMuchMemoryIsLeft()
    {
        // The engine's limit applies, because this process has none.
        const std::uint64_t left = memoryLeft();
        QVERIFY(left > 0 && left < 1024 * megaByte);
#ifdef Q_OS_LINUX
        const std::vector<char> more(64 * megaByte, 'x');
        QVERIFY(memoryLeft() <= left - 60 * megaByte);
        QCOMPARE(more.back(), 'x');
#endif
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::string_view(argv[1]) == "--most-threads") {
        return runUnderLimit(std::atoi(argv[2]));
    }
    QCoreApplication application(argc, argv);
    CorePagePoolTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "core_page_pool_test.moc"
