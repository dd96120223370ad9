// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/row_removal.h"

#include <QTest>

namespace {

using Ranges = QList<RowRange>;

} // namespace

class RowRemovalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ranges();
    void currentRow_data();
    void currentRow();
};

void RowRemovalTest::ranges()
{
    QCOMPARE(rangesFromHighToLow({}), Ranges());
    QCOMPARE(rangesFromHighToLow({3}), (Ranges{{3, 3}}));
    QCOMPARE(rangesFromHighToLow({0, 2, 1, 1, 2}), (Ranges{{0, 2}}));
    QCOMPARE(rangesFromHighToLow({9, 0, 4, 5, 7, 5}), (Ranges{{9, 9}, {7, 7}, {4, 5}, {0, 0}}));
}

void RowRemovalTest::currentRow_data()
{
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("current");
    QTest::addColumn<QList<int>>("removed");
    QTest::addColumn<int>("expected");
    QTest::addRow("nothing removed") << 5 << 3 << QList<int>{} << 3;
    QTest::addRow("no current row") << 5 << -1 << QList<int>{1, 2} << -1;
    QTest::addRow("above the current row") << 5 << 3 << QList<int>{0, 1} << 1;
    QTest::addRow("below the current row") << 5 << 1 << QList<int>{2, 4} << 1;
    QTest::addRow("the current row") << 5 << 3 << QList<int>{3} << 2;
    QTest::addRow("the first row") << 5 << 0 << QList<int>{0} << 0;
    QTest::addRow("the first rows") << 5 << 1 << QList<int>{0, 1} << 0;
    QTest::addRow("all rows") << 3 << 1 << QList<int>{0, 1, 2} << -1;
    QTest::addRow("the current row and the one above") << 6 << 3 << QList<int>{1, 3} << 1;
    QTest::addRow("two rows up to the first") << 6 << 2 << QList<int>{0, 1, 2, 4} << 0;
}

void RowRemovalTest::currentRow()
{
    QFETCH(const int, rowCount);
    QFETCH(const int, current);
    QFETCH(const QList<int>, removed);
    QTEST(currentRowAfterRemoval(rowCount, current, rangesFromHighToLow(removed)), "expected");
}

QTEST_APPLESS_MAIN(RowRemovalTest)
#include "row_removal_test.moc"
