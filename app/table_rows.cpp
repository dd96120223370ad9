// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/table_rows.h"

#include "app/row_removal.h"

#include <QTableWidget>

#include <algorithm>

namespace {

/// The cell of a path. Files stay in the order in which they were listed: no sorting changes it, except that those
/// about to be removed come last.
class PathItem : public QTableWidgetItem
{
public:
    using QTableWidgetItem::QTableWidgetItem;

    bool operator<(const QTableWidgetItem &other) const override
    {
        return !goes && static_cast<const PathItem &>(other).goes; // appendRows() makes all cells of this column
    }

    bool goes = false;
};

/// For each row of the table, whether it has a selected cell.
QList<bool> selectedRows(const QTableWidget *table)
{
    QList<bool> selected(table->rowCount(), false);
    for (const QItemSelectionRange &range : table->selectionModel()->selection()) {
        std::fill(selected.begin() + range.top(), selected.begin() + range.bottom() + 1, true);
    }
    return selected;
}

/// Without touching the selection; the view scrolls to the row. -1: no row.
void makeCurrent(QTableWidget *table, int row)
{
    table->setCurrentCell(row, table->currentColumn(), QItemSelectionModel::NoUpdate);
}

/// Moves the rows that go behind all others, which keep their order. The view's own marks move with their rows: the
/// current cell, and the one from which Shift extends the selection.
void moveToTheEnd(QTableWidget *table, const QList<bool> &goes)
{
    for (int row = 0; row < goes.size(); ++row) {
        static_cast<PathItem *>(table->item(row, 0))->goes = goes[row];
    }
    table->model()->sort(0);
}

} // namespace

void appendRows(QTableWidget *table, const QList<ListedFile> &files)
{
    int row = table->rowCount();
    table->setRowCount(row + static_cast<int>(files.size()));
    for (const ListedFile &file : files) {
        table->setItem(row, 0, new PathItem(file.path));
        if (!file.sizeText.isEmpty()) {
            table->setItem(row, 1, new QTableWidgetItem(file.sizeText));
        }
        ++row;
    }
}

void removeCurrentAndSelectedRows(QTableWidget *table)
{
    table->removeRow(table->currentRow()); // does nothing without a current row
    const QList<bool> goes = selectedRows(table);
    const auto removed = static_cast<int>(goes.count(true));
    if (removed == 0) {
        return;
    }
    const CurrentRowMove move = moveOfCurrentRow(goes, table->currentRow());
    if (move.lowest >= 0) {
        makeCurrent(table, move.lowest); // before any row moves: the view scrolls by where the rows are now
    }
    table->clearSelection();
    moveToTheEnd(table, goes);
    if (move.last > move.lowest) {
        makeCurrent(table, 0); // all rows up to it go
    }
    table->setRowCount(table->rowCount() - removed);
}
