// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/limits.h"
#include "platform/page_time.h"
#include "platform/time_allowance.h"

#include <QTest>

#include <atomic>
#include <csignal>
#include <ctime>
#include <thread>

using namespace quorra;
using namespace std::chrono_literals;

/// The processor time limits of a conversion, and the detection of pages that exceed them.
class CoreTimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSmallFileGetsLessThanHalfAMinute();
    void timeGrowsWithWhatIsAskedFor();
    void claimedPagesNeedBytes();
    void aRunNeverGetsMoreThanTheLimit();
    void scannedPagesLengthenTheRun();
    void recognitionHasALimitOfItsOwn();
    void readsTheFactor_data();
    void readsTheFactor();
    void noticesASlowPage();
    void addsUpTheDrawingsOfAPage();
    void watchesOverEachThread();
};

namespace {

constexpr int noPage = 0;
std::atomic<int> slowPage{noPage};

void noteSlowPage(int, siginfo_t *info, void *)
{
    slowPage = info->si_code == SI_TIMER ? info->si_value.sival_int : -1;
}

/// Catches the signal instead of the engine's handler, which exits.
class CaughtSignal
{
public:
    CaughtSignal()
    {
        slowPage = noPage;
        struct sigaction action
        {
        };
        action.sa_sigaction = noteSlowPage;
        action.sa_flags = SA_SIGINFO;
        sigaction(SIGXCPU, &action, &m_before);
    }
    ~CaughtSignal()
    {
        sigaction(SIGXCPU, &m_before, nullptr);
        allowPageTime(0ns);
    }
    CaughtSignal(const CaughtSignal &) = delete;
    CaughtSignal &operator=(const CaughtSignal &) = delete;

private:
    struct sigaction m_before
    {
    };
};

std::chrono::nanoseconds threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds{time.tv_sec} + std::chrono::nanoseconds{time.tv_nsec};
}

/// Uses an amount of processor time in this thread, or until a slow page is detected.
void work(std::chrono::milliseconds time)
{
    const auto end = threadTime() + time;
    while (threadTime() < end && slowPage == noPage) {
    }
}

TimeAllowance allowed(const Workload &workload)
{
    return timeAllowance(workload, 1);
}

} // namespace

void CoreTimeTest::aSmallFileGetsLessThanHalfAMinute()
{
    for (const int pages : {0, 1, 12, 100'000}) {
        const TimeAllowance time = allowed({pages, 3072, 1});
        QVERIFY(time.run + time.helper < 30s);
        QVERIFY(time.page < time.run);
    }
    const TimeAllowance onePage = allowed({1, 1'000'000, 1});
    QVERIFY(onePage.run + onePage.helper < 30s);
    QVERIFY(onePage.page > 20s);
}

void CoreTimeTest::timeGrowsWithWhatIsAskedFor()
{
    const TimeAllowance plain = allowed({10, 100'000, 1});
    QVERIFY(allowed({20, 100'000, 1}).run > plain.run);
    QVERIFY(allowed({20, 100'000, 1}).helper > plain.helper);
    const TimeAllowance finer = allowed({10, 100'000, 16});
    QVERIFY(finer.run > plain.run && finer.page > plain.page);
    const TimeAllowance larger = allowed({10, 100'000'000, 1});
    QVERIFY(larger.run > plain.run && larger.page > plain.page);
    QCOMPARE(allowed({10, 100'000, 0.01}).run, plain.run); // less asked for takes nothing away
    QCOMPARE(timeAllowance({10, 100'000, 1}, 2).page, 2 * plain.page);
}

void CoreTimeTest::claimedPagesNeedBytes()
{
    QCOMPARE(allowed({1'000'000, 20'480, 1}).run, allowed({20, 20'480, 1}).run);
    QVERIFY(allowed({300, 3'000'000, 1}).run > 90s);
}

void CoreTimeTest::aRunNeverGetsMoreThanTheLimit()
{
    const TimeAllowance time = allowed({1'000'000, 10'000'000'000, 1000});
    QCOMPARE(time.run, std::chrono::milliseconds{limits::cpuSeconds * 1000});
    QVERIFY(time.page <= time.run);
    QCOMPARE(time.helper, std::chrono::milliseconds{limits::helperCpuSeconds * 1000});
}

void CoreTimeTest::scannedPagesLengthenTheRun()
{
    const Workload plain{300, 30'000'000, 1};
    const auto with = [&plain](int scans) {
        Workload workload = plain;
        workload.scans = scans;
        return allowed(workload);
    };
    QCOMPARE(with(0).run, allowed(plain).run);
    QCOMPARE(with(10).run, allowed(plain).run + 200s);
    QCOMPARE(with(10).page, allowed(plain).page);
    QCOMPARE(with(10).scan, 20s);
    QCOMPARE(with(100'000).run, 7200s);
    const TimeAllowance largest = allowed({1'000'000, 10'000'000'000, 1000, 1});
    QCOMPARE(largest.run, 620s); // all other work keeps its limit
}

void CoreTimeTest::recognitionHasALimitOfItsOwn()
{
#ifndef Q_OS_LINUX
    QSKIP("not run: this system does not watch over a thread's time");
#endif
    const CaughtSignal caught;
    allowPageTime(100ms);
    {
        const PageTime recognition(51, 10s);
        work(150ms);
    }
    {
        const PageTime time(51); // has all of its time left
        work(30ms);
    }
    QCOMPARE(slowPage, noPage);
    const PageTime recognition(52, 50ms);
    work(10s);
    QCOMPARE(slowPage, 52);
}

void CoreTimeTest::readsTheFactor_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("factor");
    QTest::newRow("absent") << QByteArray() << 1.;
    QTest::newRow("empty") << QByteArrayLiteral("") << 1.;
    QTest::newRow("number") << QByteArrayLiteral("2.5") << 2.5;
    QTest::newRow("least") << QByteArrayLiteral("0.01") << 0.01;
    QTest::newRow("most") << QByteArrayLiteral("100") << 100.;
    QTest::newRow("zero") << QByteArrayLiteral("0") << 1.;
    QTest::newRow("negative") << QByteArrayLiteral("-2") << 1.;
    QTest::newRow("too large") << QByteArrayLiteral("101") << 1.;
    QTest::newRow("infinite") << QByteArrayLiteral("inf") << 1.;
    QTest::newRow("no number") << QByteArrayLiteral("nan") << 1.;
    QTest::newRow("a word") << QByteArrayLiteral("fast") << 1.;
}

void CoreTimeTest::readsTheFactor()
{
    QFETCH(QByteArray, text);
    QFETCH(double, factor);
    QCOMPARE(timeFactor(text.isNull() ? nullptr : text.constData()), factor);
}

void CoreTimeTest::noticesASlowPage()
{
#ifndef Q_OS_LINUX
    QSKIP("not run: this system does not watch over a thread's time");
#endif
    const CaughtSignal caught;
    allowPageTime(50ms);
    {
        const PageTime time(41);
        work(5ms);
    }
    QCOMPARE(slowPage, noPage);
    const PageTime time(42);
    work(10s);
    QCOMPARE(slowPage, 42);
}

void CoreTimeTest::addsUpTheDrawingsOfAPage()
{
#ifndef Q_OS_LINUX
    QSKIP("not run: this system does not watch over a thread's time");
#endif
    const CaughtSignal caught;
    allowPageTime(100ms);
    int drawings = 0;
    for (; slowPage == noPage && drawings < 1000; ++drawings) {
        const PageTime time(43);
        work(30ms);
    }
    QCOMPARE(slowPage, 43);
    QVERIFY2(drawings >= 3 && drawings <= 6, qPrintable(QString::number(drawings)));
    slowPage = noPage;
    const PageTime time(44); // another page begins anew
    work(30ms);
    QCOMPARE(slowPage, noPage);
}

void CoreTimeTest::watchesOverEachThread()
{
#ifndef Q_OS_LINUX
    QSKIP("not run: this system does not watch over a thread's time");
#endif
    const CaughtSignal caught;
    allowPageTime(200ms);
    // Together they exceed the limit, but neither does alone.
    const auto drawPage = [](int page) {
        const PageTime time(page);
        work(120ms);
    };
    std::thread other(drawPage, 45);
    drawPage(46);
    other.join();
    QCOMPARE(slowPage, noPage);
    std::thread slow([] {
        const PageTime time(47);
        work(10s);
    });
    slow.join();
    QCOMPARE(slowPage, 47);
}

QTEST_APPLESS_MAIN(CoreTimeTest)
#include "core_time_test.moc"
