// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/table_rows.h"

#include "app/row_removal.h"

#include <QTableWidget>

namespace {

// Up to here removing range by range is quick enough; the toolkit then does everything itself.
constexpr int fewRanges = 16;

QList<int> selectedRows(const QTableWidget *table)
{
    QList<int> rows;
    for (const QItemSelectionRange &range : table->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.append(row);
        }
    }
    return rows;
}

void removeRanges(QTableWidget *table, const QList<RowRange> &ranges)
{
    for (const RowRange &range : ranges) {
        table->model()->removeRows(range.first, range.last - range.first + 1);
    }
}

void moveRow(QTableWidget *table, int from, int to)
{
    for (int column = 0; column < table->columnCount(); ++column) {
        table->setItem(to, column, table->takeItem(from, column));
    }
}

// Moves the rows that stay up over those that go, and cuts off the end in one step.
void closeGaps(QTableWidget *table, const QList<RowRange> &ranges)
{
    const int current = currentRowAfterRemoval(table->rowCount(), table->currentRow(), ranges);
    const int column = table->currentColumn();
    table->clearSelection();
    int end = ranges.last().first;
    for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
        const auto next = std::next(range);
        const int nextGap = next == ranges.crend() ? table->rowCount() : next->first;
        for (int row = range->last + 1; row < nextGap; ++row) {
            moveRow(table, row, end++);
        }
    }
    table->setRowCount(end);
    table->selectionModel()->setCurrentIndex(table->model()->index(current, column), QItemSelectionModel::NoUpdate);
}

} // namespace

void appendRows(QTableWidget *table, const QList<ListedFile> &files)
{
    int row = table->rowCount();
    table->setRowCount(row + static_cast<int>(files.size()));
    for (const ListedFile &file : files) {
        table->setItem(row, 0, new QTableWidgetItem(file.path));
        if (!file.sizeText.isEmpty()) {
            table->setItem(row, 1, new QTableWidgetItem(file.sizeText));
        }
        ++row;
    }
}

void removeCurrentAndSelectedRows(QTableWidget *table)
{
    table->removeRow(table->currentRow()); // does nothing without a current row
    const QList<RowRange> ranges = rangesFromHighToLow(selectedRows(table));
    if (ranges.size() <= fewRanges) {
        removeRanges(table, ranges);
    } else {
        closeGaps(table, ranges);
    }
}
