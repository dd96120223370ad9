// SPDX-License-Identifier: GPL-3.0-or-later
// Adding, removing and clearing many rows in the window has the same result as doing it row by row.
#include "random_source.h"
#include "window_fixture.h"

#include <QtTest>

#include <set>

namespace {

struct TableState
{
    QStringList cells; ///< "(none)" where there is no item
    QList<int> selected;
    int currentRow = -1;
    int currentColumn = -1;

    friend bool operator==(const TableState &, const TableState &) = default;
};

TableState stateOf(const QTableWidget &table)
{
    TableState state;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < 2; ++column) {
            state.cells << (table.item(row, column) ? table.item(row, column)->text() : QStringLiteral("(none)"));
        }
        if (table.selectionModel()->isRowSelected(row)) {
            state.selected << row;
        }
    }
    state.currentRow = table.currentRow();
    state.currentColumn = table.currentColumn();
    return state;
}

/// The reference implementations: one row after another.
void removeRowByRow(QTableWidget &table)
{
    table.removeRow(table.currentRow());
    std::set<int, std::greater<>> rows;
    const QModelIndexList indexes = table.selectionModel()->selectedIndexes();
    for (const QModelIndex &index : indexes) {
        rows.insert(index.row());
    }
    for (const int row : rows) {
        table.removeRow(row);
    }
}

void clearRowByRow(QTableWidget &table)
{
    for (int row = table.rowCount() - 1; row >= 0; --row) {
        table.removeRow(row);
    }
}

void fillRowByRow(QTableWidget &table, const QTableWidget &like)
{
    for (int row = 0; row < like.rowCount(); ++row) {
        table.insertRow(row);
        table.setItem(row, 0, new QTableWidgetItem(like.item(row, 0)->text()));
        if (like.item(row, 1)) {
            table.setItem(row, 1, new QTableWidgetItem(like.item(row, 1)->text()));
        }
    }
}

/// A separate table, configured like that of the window.
void setUpAlike(QTableWidget &table)
{
    table.setColumnCount(2);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
}

} // namespace

class WidgetsBulkEquivalence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void removeAndClear();

private:
    void selectAlike(QTableWidget &first, QTableWidget &second);

    RandomSource m_random;
};

/// Single rows, runs of rows or every other row selected; a current row in or out of the selection, or none.
void WidgetsBulkEquivalence::selectAlike(QTableWidget &first, QTableWidget &second)
{
    const int rows = first.rowCount();
    const int stride = 1 + m_random.below(4);
    const int from = m_random.below(rows + 1);
    QList<int> selected;
    for (int row = from; row < rows; row += stride) {
        if (!m_random.oneIn(5)) {
            selected << row;
        }
    }
    const int current = m_random.oneIn(4) ? -1 : m_random.below(rows + 1) - 1;
    const int column = m_random.below(2);
    for (QTableWidget *table : {&first, &second}) {
        QItemSelectionModel *model = table->selectionModel();
        model->clear();
        for (const int row : std::as_const(selected)) {
            model->select(table->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
        if (current >= 0) {
            model->setCurrentIndex(table->model()->index(current, column), QItemSelectionModel::NoUpdate);
        }
    }
}

void WidgetsBulkEquivalence::removeAndClear()
{
    WindowFixture fixture;
    fixture.open();
    QStringList files = fixture.folder.makePdfs(6);
    files << fixture.folder.makePdf(QStringLiteral("empty.pdf"), 0);
    for (int round = 0; round < randomRounds(150); ++round) {
        QTableWidget plain;
        setUpAlike(plain);
        QStringList dropped;
        for (int count = m_random.below(m_random.oneIn(5) ? 300 : 40); count > 0; --count) {
            dropped << m_random.pick(files);
        }
        fixture.drop(dropped);
        fillRowByRow(plain, *fixture.table());
        QCOMPARE(fixture.pathsInTable(), dropped);
        fixture.table()->selectionModel()->clear();

        for (int step = 0; step < 3; ++step) {
            selectAlike(*fixture.table(), plain);
            QVERIFY(stateOf(*fixture.table()) == stateOf(plain));
            fixture.call("On_Button_RemoveFile");
            removeRowByRow(plain);
            const TableState actual = stateOf(*fixture.table());
            const TableState expected = stateOf(plain);
            QCOMPARE(actual.cells, expected.cells);
            QCOMPARE(actual.selected, expected.selected);
            QCOMPARE(actual.currentRow, expected.currentRow);
            QCOMPARE(actual.currentColumn, expected.currentColumn);
        }
        fixture.call("On_Button_ClearFile");
        clearRowByRow(plain);
        QVERIFY(stateOf(*fixture.table()) == stateOf(plain));
    }
}

QTEST_MAIN(WidgetsBulkEquivalence)
#include "widgets_bulk_equivalence.moc"
