// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"
#include "tags/tagged_text.h"

namespace quorra::model {

namespace taggedTables {

struct Thresholds
{
    double tolerance = 2;      ///< points by which the texts of neighbouring rows and columns may overlap
    double padding = 3;        ///< points from the text to the edge of a table without lines
    double maxEdgeGap = 15;    ///< points from the text to the line at the edge of its table
    double sameLine = 2.5;     ///< points; lines so close to the edge of a cell are its border
    double maxPlaces = 10'000; ///< rows times columns on a page; nobody can read more
    double minSameWords = 0.9; ///< share of the words at the same place of the grid that lines draw
    double maxAcross = 0.3;    ///< share of a table's words in paragraphs that run over its columns
};

inline constexpr Thresholds thresholds;

} // namespace taggedTables

/// Replaces the tables that the lines of a page show by those in its tags. Tables of the tags whose texts are not in
/// rows and columns are ignored. `tables` are those that lines draw, `words` the
/// page's words without header and footer.
void useTaggedTables(
    std::vector<TableWords> &tables, const std::vector<TaggedTable> &tagged, const Rulings &rulings,
    const WordRefs &words);

/// Whether the tags say that the words are no table: paragraphs run over its columns, or the columns are read one after
/// the other.
bool isDenied(const TableWords &table);

} // namespace quorra::model
