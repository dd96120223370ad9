// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// A part of a cell that is read by itself.
struct CellColumn
{
    WordRefs words;
    Box box;
};

/// Cuts a cell of many lines at a blank strip from top to bottom when the lines on its sides are not the same ones:
/// remarks in the margin of a form stand beside its lines, not in them. Otherwise the cell is one part. So is a
/// cell with turned words.
std::vector<CellColumn> cellColumns(const WordRefs &words, const Box &cell);

} // namespace quorra::model
