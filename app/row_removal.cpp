// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/row_removal.h"

#include <algorithm>
#include <functional>

QList<RowRange> rangesFromHighToLow(QList<int> rows)
{
    std::sort(rows.begin(), rows.end(), std::greater<>());
    QList<RowRange> ranges;
    for (const int row : std::as_const(rows)) {
        if (!ranges.isEmpty() && ranges.last().first - row <= 1) {
            ranges.last().first = row;
        } else {
            ranges.append({row, row});
        }
    }
    return ranges;
}

int currentRowAfterRemoval(int rowCount, int current, const QList<RowRange> &removed)
{
    for (const RowRange &range : removed) {
        const int count = range.last - range.first + 1;
        if (current > range.last) {
            current -= count;
        } else if (current >= range.first) {
            const bool hasRowBelow = range.last + 1 < rowCount;
            // The row below takes the place of the first removed one.
            current = range.first > 0 ? range.first - 1 : (hasRowBelow ? 0 : -1);
        }
        rowCount -= count;
    }
    return current;
}
