// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

// What the cells around a figure tell about it. Pure functions on the document model.
namespace quorra::office {

/// Moves the currency signs that stand far behind the text of a cell to the number in the cell after it, to which they
/// belong: the signs of a column are often drawn at its left edge.
void moveCurrencySigns(model::Table &table);

/// Returns, for each cell of the table, whether it counts columns or rows: "(1)", "(2)", "(3)" side by side or one
/// below the other are no negative numbers.
std::vector<bool> countingCells(const model::Table &table);

} // namespace quorra::office
