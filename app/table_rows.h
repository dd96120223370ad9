// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/listed_files.h"

#include <QList>

class QTableWidget;

// Changes to many rows of the file table at once. Rows, items, selection, current row, scroll position and the row from
// which Shift extends the selection end up exactly as if the rows had been changed one by one, which takes the toolkit
// minutes for long lists.

/// Adds one row for each file at the end of the table.
void appendRows(QTableWidget *table, const QList<ListedFile> &files);

/// Removes the current row, selected or not, and then every row with a selected cell, from the last to the first. All
/// rows must come from appendRows().
void removeCurrentAndSelectedRows(QTableWidget *table);
