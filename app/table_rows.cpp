// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/table_rows.h"

#include "app/row_removal.h"

#include <QTableWidget>

#include <algorithm>

namespace {

/// The cell of a path. Sorting keeps the order in which files were added, but moves those about to be removed to the
/// end.
class PathItem : public QTableWidgetItem
{
public:
    using QTableWidgetItem::QTableWidgetItem;

    bool operator<(const QTableWidgetItem &other) const override
    {
        return !goes && static_cast<const PathItem &>(other).goes; // appendRows() creates all cells of this column
    }

    bool goes = false;
};

/// Returns for each row of the table whether it has a selected cell.
QList<bool> selectedRows(const QTableWidget *table)
{
    QList<bool> selected(table->rowCount(), false);
    for (const QItemSelectionRange &range : table->selectionModel()->selection()) {
        std::fill(selected.begin() + range.top(), selected.begin() + range.bottom() + 1, true);
    }
    return selected;
}

/// Keeps the selection; the view scrolls to the row. -1 means no row.
void makeCurrent(QTableWidget *table, int row)
{
    table->setCurrentCell(row, table->currentColumn(), QItemSelectionModel::NoUpdate);
}

/// Moves the rows to be removed to the end; the others keep their order. The current cell, and the one from which Shift
/// extends the selection, move with their rows.
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
        makeCurrent(table, move.lowest); // before any row is moved, because the view scrolls to its current position
    }
    table->clearSelection();
    moveToTheEnd(table, goes);
    if (move.last > move.lowest) {
        makeCurrent(table, 0); // all rows before it are removed
    }
    table->setRowCount(table->rowCount() - removed);
}
