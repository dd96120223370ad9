// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/listed_files.h"

#include <QList>

class QTableWidget;

// Changes many rows of the file table at once. Rows, items, selection, current row, scroll position and the row from
// which Shift extends the selection are exactly as if the rows had been changed one by one, which takes minutes for
// long lists.

/// Appends one row for each file.
void appendRows(QTableWidget *table, const QList<ListedFile> &files);

/// Removes the current row, even if it is not selected, and then all rows with a selected cell, from the last to the
/// first. All rows must have been created by appendRows().
void removeCurrentAndSelectedRows(QTableWidget *table);
