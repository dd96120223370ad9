// SPDX-License-Identifier: GPL-3.0-or-later
// Changes to many rows at once leave a table as changes row by row do.
#include "app/table_rows.h"

#include "random_source.h"

#include <QTableWidget>
#include <QTest>

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

// Selects the same rows and the same current cell in both tables.
void selectSomething(RandomSource &random, const QList<QTableWidget *> &tables)
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
