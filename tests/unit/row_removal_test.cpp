// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/row_removal.h"

#include <QTest>

class RowRemovalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void currentRow_data();
    void currentRow();
};

void RowRemovalTest::currentRow_data()
{
    QTest::addColumn<QByteArray>("rows"); // x: goes
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("last");
    QTest::addRow("nothing removed") << QByteArray("-----") << 3 << 3 << 3;
    QTest::addRow("no current row") << QByteArray("-xx--") << -1 << -1 << -1;
    QTest::addRow("no row") << QByteArray() << -1 << -1 << -1;
    QTest::addRow("above the current row") << QByteArray("xx---") << 3 << 3 << 3;
    QTest::addRow("below the current row") << QByteArray("--x-x") << 1 << 1 << 1;
    QTest::addRow("the current row") << QByteArray("---x-") << 3 << 2 << 2;
    QTest::addRow("the last row") << QByteArray("----x") << 4 << 3 << 3;
    QTest::addRow("the first row") << QByteArray("x----") << 0 << 0 << 1;
    QTest::addRow("the first rows") << QByteArray("xx---") << 1 << 0 << 2;
    QTest::addRow("the first rows and below") << QByteArray("xxxx-") << 1 << 0 << 4;
    QTest::addRow("all rows") << QByteArray("xxx") << 1 << 0 << -1;
    QTest::addRow("a row below a gap") << QByteArray("-x-x--") << 3 << 2 << 2;
    QTest::addRow("rows with a gap to the first") << QByteArray("x-xx-x") << 3 << 1 << 1;
}

void RowRemovalTest::currentRow()
{
    QFETCH(const QByteArray, rows);
    QFETCH(const int, current);
    QList<bool> goes;
    for (const char row : rows) {
        goes.append(row == 'x');
    }
    const CurrentRowMove move = moveOfCurrentRow(goes, current);
    QTEST(move.lowest, "lowest");
    QTEST(move.last, "last");
}

QTEST_APPLESS_MAIN(RowRemovalTest)
#include "row_removal_test.moc"
