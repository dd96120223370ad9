// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

namespace quorra::office {

/// How a table stands in what surrounds it. Lengths in points.
struct TablePlace
{
    double left = 0;  ///< from the left edge of what surrounds it
    double above = 0; ///< space above
    bool exactLeading = true;
    /// The header rows come back on each page that the table reaches. Where a table stands on a page of its own they
    /// need not, and LibreOffice splits tables with such rows that have just room enough.
    bool repeatsHead = true;
};

/// Writes a column of a table, that many points wide.
void writeColumn(const Sink &sink, double width);

/// Writes the attributes that say over how many columns and rows a cell reaches; none for a plain cell.
void writeSpans(QXmlStreamWriter &xml, const model::Cell &cell);

/// The cell that begins at each place of the grid, row by row; null where a cell that spans covers the place.
std::vector<const model::Cell *> cellGrid(const model::Table &table);

/// Writes the table into a text document with its spans, borders, backgrounds and header rows.
void writeTable(const Sink &sink, const model::Table &table, const TablePlace &place);

} // namespace quorra::office
