// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/row_removal.h"

CurrentRowMove moveOfCurrentRow(const QList<bool> &goes, int current)
{
    if (current < 0) {
        return {};
    }
    int lowest = current;
    while (lowest > 0 && goes[lowest]) {
        --lowest;
    }
    if (!goes[lowest]) {
        return {lowest, lowest};
    }
    const auto next = goes.indexOf(false, current);
    return {lowest, static_cast<int>(next)};
}
