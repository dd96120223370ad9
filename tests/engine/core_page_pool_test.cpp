// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/platform/page_pool.h"

#include <QTest>

#include <atomic>
#include <stdexcept>
#include <vector>

using namespace quorra;

class CorePagePoolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    void sharesThePagesBetweenThreads()
    {
        std::atomic<int> sum = 0;
        std::atomic<int> threads = 0;
        runPool(3, 100, [&](const PageSource &next) {
            ++threads;
            while (const int position = next()) {
                sum += position;
            }
        });
        QCOMPARE(threads.load(), 3);
        QCOMPARE(sum.load(), 5050);
    }
};

QTEST_GUILESS_MAIN(CorePagePoolTest)
#include "core_page_pool_test.moc"
