// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/office/odf_paragraphs.h"

namespace quorra::office {

/// Where a table stands: text documents and slides name the same looks differently.
enum class TableHome { Text, Slide };

/// How a table stands in what surrounds it. Lengths in points.
struct TablePlace
{
    TableHome home = TableHome::Text;
    double left = 0;  ///< from the left edge of what surrounds it
    double above = 0; ///< blank space above
    bool exactLeading = true;
};

/// The cell that begins at each place of the grid, row by row; null where a cell that spans covers the place.
std::vector<const model::Cell *> cellGrid(const model::Table &table);

/// Writes the table with its spans, borders, backgrounds and header rows; text documents get it at its place, in
/// slides the caller's frame places it.
void writeTable(const Sink &sink, const model::Table &table, const TablePlace &place);

} // namespace quorra::office
