// SPDX-License-Identifier: GPL-3.0-or-later
// Changing many rows at once has the same result as changing them one by one.
#include "app/table_rows.h"

#include "random_source.h"

#include <QElapsedTimer>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>
#include <set>

namespace {

QList<ListedFile> numberedFiles(int count)
{
    QList<ListedFile> files;
    for (int i = 0; i < count; ++i) {
        files.append({QStringLiteral("/in/%1.pdf").arg(i), i % 3 == 0 ? QString() : QString::number(i)});
    }
    return files;
}

std::unique_ptr<QTableWidget> emptyTable()
{
    auto table = std::make_unique<QTableWidget>(0, 2);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    return table;
}

void appendOneByOne(QTableWidget *table, const QList<ListedFile> &files)
{
    for (const ListedFile &file : files) {
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, 0, new QTableWidgetItem(file.path));
        if (!file.sizeText.isEmpty()) {
            table->setItem(row, 1, new QTableWidgetItem(file.sizeText));
        }
    }
}

void removeOneByOne(QTableWidget *table)
{
    table->removeRow(table->currentRow());
    std::set<int> rows;
    for (const QModelIndex &index : table->selectionModel()->selectedIndexes()) {
        rows.insert(index.row());
    }
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        table->removeRow(*row);
    }
}

QStringList stateOf(const QTableWidget *table)
{
    const auto text = [](const QTableWidgetItem *item) { return item ? item->text() : QStringLiteral("none"); };
    QStringList state{QStringLiteral("current %1 %2").arg(table->currentRow()).arg(table->currentColumn())};
    for (int row = 0; row < table->rowCount(); ++row) {
        state.append(text(table->item(row, 0)) + QLatin1Char('|') + text(table->item(row, 1)));
    }
    for (const QModelIndex &index : table->selectionModel()->selectedIndexes()) {
        state.append(QStringLiteral("selected %1 %2").arg(index.row()).arg(index.column()));
    }
    return state;
}

using Pair = QList<QTableWidget *>; // the one changed at once and the one changed row by row

/// A visible table like that of the window, in which not all rows are visible.
std::unique_ptr<QTableWidget> shownTable()
{
    auto table = emptyTable();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setFocusPolicy(Qt::NoFocus); // one of two windows has it, and an empty view makes a row current for it
    table->resize(545, 300);
    table->show();
    return table;
}

/// Updates the layout of both views.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void click(const Pair &tables, int row, Qt::KeyboardModifiers modifiers)
{
    for (QTableWidget *table : tables) {
        const QPoint place = table->visualItemRect(table->item(row, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, place);
    }
}

int rowInSight(RandomSource &random, const QTableWidget *table)
{
    const int first = table->rowAt(0);
    const int end = table->rowAt(table->viewport()->height() - 1);
    const int last = end < 0 ? table->rowCount() - 1 : end - 1; // the one at the edge may be cut off
    return std::min(first + random.below(last - first + 1), table->rowCount() - 1);
}

void scrollTo(const Pair &tables, int row)
{
    for (QTableWidget *table : tables) {
        table->verticalScrollBar()->setValue(row);
    }
    settle();
}

QString viewOf(const QTableWidget *table)
{
    return QStringLiteral("scrolled %1 of %2, at the top %3")
        .arg(table->verticalScrollBar()->value())
        .arg(table->verticalScrollBar()->maximum())
        .arg(table->rowAt(0));
}

/// Selects the same rows and the same current cell in both tables.
void selectSomething(RandomSource &random, const Pair &tables)
{
    const int rows = tables.first()->rowCount();
    const int current = random.below(rows + 1) - 1;
    const int column = random.below(2);
    const int oneIn = 1 + random.below(6);
    QItemSelection selection;
    for (QTableWidget *table : tables) {
        table->setCurrentCell(current, column, QItemSelectionModel::NoUpdate);
    }
    for (int row = 0; row < rows; ++row) {
        if (random.oneIn(oneIn)) {
            for (QTableWidget *table : tables) {
                const QModelIndex index = table->model()->index(row, 0);
                table->selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
            }
        }
    }
}

} // namespace

class TableRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void appendingMatchesRowByRow();
    void removalOfRows_data();
    void removalOfRows();
    void removalMatchesRowByRow();
    void removalByMouseMatchesRowByRow();
    void shiftExtendsFromTheSameRow();
    void topIsShownWhenTheFirstRowsGo();
    void everyOtherRowGoesQuickly();
    void removalFromAnEmptyTable();
    void itemsAreKept();
};

void TableRowsTest::appendingMatchesRowByRow()
{
    const auto bulk = emptyTable();
    const auto single = emptyTable();
    for (const int count : {3, 0, 1, 40}) {
        appendRows(bulk.get(), numberedFiles(count));
        appendOneByOne(single.get(), numberedFiles(count));
        bulk->setCurrentCell(1, 0);
        single->setCurrentCell(1, 0);
        QCOMPARE(stateOf(bulk.get()), stateOf(single.get()));
    }
}

void TableRowsTest::removalOfRows_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QString>("left");
    QTest::addRow("current and all others selected") << 0 << QList<int>{1, 2} << QString();
    QTest::addRow("current not selected") << 2 << QList<int>{0} << QStringLiteral("/in/1.pdf");
    QTest::addRow("current only") << 1 << QList<int>{} << QStringLiteral("/in/0.pdf /in/2.pdf");
    QTest::addRow("selected only") << -1 << QList<int>{1} << QStringLiteral("/in/0.pdf /in/2.pdf");
    QTest::addRow("neither") << -1 << QList<int>{} << QStringLiteral("/in/0.pdf /in/1.pdf /in/2.pdf");
}

void TableRowsTest::removalOfRows()
{
    QFETCH(const int, current);
    QFETCH(const QList<int>, selected);
    const auto table = emptyTable();
    appendRows(table.get(), numberedFiles(3));
    table->setCurrentCell(current, 0, QItemSelectionModel::NoUpdate);
    for (const int row : selected) {
        table->selectionModel()->select(
            table->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    removeCurrentAndSelectedRows(table.get());
    QStringList left;
    for (int row = 0; row < table->rowCount(); ++row) {
        left.append(table->item(row, 0)->text());
    }
    QTEST(left.join(QLatin1Char(' ')), "left");
}

void TableRowsTest::removalMatchesRowByRow()
{
    RandomSource random;
    const int rounds = randomRounds(300);
    for (int round = 0; round < rounds; ++round) {
        const auto bulk = emptyTable();
        const auto single = emptyTable();
        const int count = 1 + random.below(round % 2 == 0 ? 12 : 300); // few ranges, many ranges
        appendRows(bulk.get(), numberedFiles(count));
        appendRows(single.get(), numberedFiles(count));
        while (bulk->rowCount() > 0) {
            selectSomething(random, {bulk.get(), single.get()});
            const QStringList before = stateOf(bulk.get());
            QCOMPARE(before, stateOf(single.get()));
            removeCurrentAndSelectedRows(bulk.get());
            removeOneByOne(single.get());
            QCOMPARE(stateOf(bulk.get()), stateOf(single.get()));
        }
    }
}

/// Clicks, also with Control and Shift, scrolling, keys, and many selected rows.
void TableRowsTest::removalByMouseMatchesRowByRow()
{
    RandomSource random;
    const int rounds = randomRounds(60);
    for (int round = 0; round < rounds; ++round) {
        const auto bulk = shownTable();
        const auto single = shownTable();
        const Pair tables{bulk.get(), single.get()};
        const int count = 1 + random.below(random.oneIn(3) ? 15 : 200);
        appendRows(bulk.get(), numberedFiles(count));
        appendOneByOne(single.get(), numberedFiles(count));
        settle();
        while (bulk->rowCount() > 0) {
            if (random.oneIn(2)) {
                selectSomething(random, tables);
                settle();
            }
            for (int action = random.below(5); action > 0; --action) {
                if (random.oneIn(2)) {
                    scrollTo(tables, random.below(bulk->rowCount()));
                }
                constexpr std::array modifiers{Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
                click(tables, rowInSight(random, bulk.get()), modifiers.at(random.below(3)));
            }
            if (random.oneIn(2)) {
                scrollTo(tables, random.below(bulk->rowCount()));
            }
            QCOMPARE(stateOf(bulk.get()), stateOf(single.get()));
            removeCurrentAndSelectedRows(bulk.get());
            removeOneByOne(single.get());
            settle();
            QCOMPARE(stateOf(bulk.get()), stateOf(single.get()));
            QCOMPARE(viewOf(bulk.get()), viewOf(single.get()));
            if (bulk->rowCount() > 0) {
                click(tables, rowInSight(random, bulk.get()), Qt::ShiftModifier);
                QCOMPARE(stateOf(bulk.get()), stateOf(single.get()));
            }
        }
    }
}

/// Shift extends the selection from the row clicked last before the removal, even if it has moved.
void TableRowsTest::shiftExtendsFromTheSameRow()
{
    const auto table = shownTable();
    appendRows(table.get(), numberedFiles(100));
    settle();
    scrollTo({table.get()}, 70);
    click({table.get()}, 70, Qt::NoModifier);
    click({table.get()}, 75, Qt::ShiftModifier); // row 75 is current now
    table->clearSelection();
    for (int row = 10; row < 60; row += 2) {
        table->selectionModel()->select(
            table->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    removeCurrentAndSelectedRows(table.get());
    settle();
    QCOMPARE(table->rowCount(), 74);
    QCOMPARE(table->item(45, 0)->text(), QStringLiteral("/in/70.pdf"));
    scrollTo({table.get()}, 45);
    click({table.get()}, 47, Qt::ShiftModifier);
    QStringList selected;
    for (const QModelIndex &index : table->selectionModel()->selectedRows()) {
        selected.append(table->item(index.row(), 0)->text());
    }
    selected.sort();
    QCOMPARE(
        selected,
        QStringList({QStringLiteral("/in/70.pdf"), QStringLiteral("/in/71.pdf"), QStringLiteral("/in/72.pdf")}));
}

/// The current row moves up to the first row before it moves down: the view is scrolled to the top.
void TableRowsTest::topIsShownWhenTheFirstRowsGo()
{
    const auto table = shownTable();
    appendRows(table.get(), numberedFiles(100));
    settle();
    click({table.get()}, 0, Qt::NoModifier);
    scrollTo({table.get()}, 40);
    click({table.get()}, 42, Qt::ShiftModifier);
    removeCurrentAndSelectedRows(table.get());
    settle();
    QCOMPARE(table->rowCount(), 57);
    QCOMPARE(table->currentRow(), 0);
    QCOMPARE(table->verticalScrollBar()->value(), 0);
}

/// 50,000 rows, in less than a tenth of the time for row by row, which is extrapolated from a part.
void TableRowsTest::everyOtherRowGoesQuickly()
{
    constexpr int count = 50000;
    constexpr int timed = 2500; // of the 25,000
    const auto bulk = shownTable();
    const auto single = shownTable();
    for (QTableWidget *table : {bulk.get(), single.get()}) {
        appendRows(table, numberedFiles(count));
        QItemSelection selection;
        for (int row = 0; row < count; row += 2) {
            selection.append(QItemSelectionRange(table->model()->index(row, 0), table->model()->index(row, 1)));
        }
        table->selectionModel()->select(selection, QItemSelectionModel::Select);
        settle();
    }
    QElapsedTimer timer;
    timer.start();
    removeCurrentAndSelectedRows(bulk.get());
    settle();
    const qint64 atOnce = timer.restart();
    for (int row = count - 2; row >= count - 2 * timed; row -= 2) {
        single->removeRow(row);
    }
    const qint64 oneByOne = timer.elapsed() * (count / 2 / timed);
    QCOMPARE(bulk->rowCount(), count / 2);
    qInfo("%lld ms, row by row about %lld ms", atOnce, oneByOne);
    QVERIFY(atOnce * 10 < oneByOne);
}

void TableRowsTest::removalFromAnEmptyTable()
{
    const auto table = emptyTable();
    removeCurrentAndSelectedRows(table.get());
    QCOMPARE(table->rowCount(), 0);
}

void TableRowsTest::itemsAreKept()
{
    const auto table = emptyTable();
    appendRows(table.get(), numberedFiles(100));
    QList<QTableWidgetItem *> kept;
    for (int row = 0; row < 100; row += 2) {
        kept.append(table->item(row, 0));
        table->selectionModel()->select(
            table->model()->index(row + 1, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    removeCurrentAndSelectedRows(table.get());
    QCOMPARE(table->rowCount(), 50);
    for (int row = 0; row < 50; ++row) {
        QCOMPARE(table->item(row, 0), kept.at(row));
    }
}

QTEST_MAIN(TableRowsTest)
#include "table_rows_test.moc"
