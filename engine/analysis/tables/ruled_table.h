// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "tables/rulings.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// A table whose cells are known, its words not yet put together to paragraphs.
struct TableWords
{
    Table table;
    std::vector<WordRefs> words; ///< for each cell of the table
};

/// Finds the tables that lines draw: grids of crossing rules with text in them. Cells between which no line is drawn
/// are one spanning cell. Outer sides may be open.
std::vector<TableWords> findRuledTables(const Rulings &rulings, const WordRefs &words);

/// Cuts the bands of a ruled table whose cells hold several lines that continue from cell to cell (a table ruled by
/// columns only) into one row for each line.
void splitAlignedLines(TableWords &found);

} // namespace quorra::model
