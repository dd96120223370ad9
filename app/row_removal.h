// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

// What is left of a table after some of its rows are removed one by one from the last to the first.

// Consecutive rows, both ends included.
struct RowRange
{
    int first = 0;
    int last = 0;

    friend bool operator==(const RowRange &, const RowRange &) = default;
};

// Folds row numbers (any order, doubles allowed) into ranges ordered from high to low.
[[nodiscard]] QList<RowRange> rangesFromHighToLow(QList<int> rows);

// The current row after `removed` (from high to low) has left a table of `rowCount` rows: as the toolkit moves it, to
// the row above what is removed, else to the row below, else to none (-1). `current` is -1 when there is none.
[[nodiscard]] int currentRowAfterRemoval(int rowCount, int current, const QList<RowRange> &removed);
