// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

/// What becomes of the current row of a table when rows are removed one by one, from the last to the first.
struct CurrentRowMove
{
    int lowest = -1; ///< the lowest row that is current meanwhile; -1: there is none
    int last = -1;   ///< the row that is current in the end; -1: there is none

    friend bool operator==(const CurrentRowMove &, const CurrentRowMove &) = default;
};

/// Follows the current row (-1: there is none) as the toolkit moves it: from a row that goes to the row above, and from
/// the first row to the next one that stays. `goes` tells for each row whether it is removed. The rows of the result
/// are numbered as before the removal.
[[nodiscard]] CurrentRowMove moveOfCurrentRow(const QList<bool> &goes, int current);
