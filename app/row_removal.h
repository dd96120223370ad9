// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

/// How the current row of a table changes when rows are removed one by one, from the last to the first.
struct CurrentRowMove
{
    int lowest = -1; ///< the lowest row that is current in between; -1 for none
    int last = -1;   ///< the row that is current at the end; -1 for none

    friend bool operator==(const CurrentRowMove &, const CurrentRowMove &) = default;
};

/// Follows the current row (-1 for none) as Qt changes it: from a removed row to the row above, and from the first row
/// to the next one that remains. `goes` tells for each row whether it is removed. The result uses row numbers before
/// the removal.
[[nodiscard]] CurrentRowMove moveOfCurrentRow(const QList<bool> &goes, int current);
