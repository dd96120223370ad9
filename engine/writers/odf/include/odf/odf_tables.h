// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

#include <functional>

namespace quorra::office {

/// How a table is placed in its context. Lengths in points.
struct TablePlace
{
    double left = 0;  ///< from the left edge of the context
    double above = 0; ///< space above
    bool exactLeading = true;
    /// The header rows are repeated on each page that the table extends to. A table within a page does not need this,
    /// and LibreOffice would split it even if there is just enough room.
    bool repeatsHeader = true;
};

/// Writes a column of a table with this width in points.
void writeColumn(const Sink &sink, double width);

/// Writes the attributes for the columns and rows that a cell spans; none if it does not span several.
void writeSpans(QXmlStreamWriter &xml, const model::Cell &cell);

/// Writes the rows of a table: beginRow starts the element of the row with this index, writeCell writes a cell that
/// begins in the row, and positions covered by other cells get covered cells.
void writeRows(
    QXmlStreamWriter &xml, const model::Table &table, const std::function<XmlElement(int)> &beginRow,
    const std::function<void(const model::Cell &)> &writeCell);

/// Writes the table into a text document with its spans, borders, backgrounds and header rows.
void writeTable(const Sink &sink, const model::Table &table, const TablePlace &place);

} // namespace quorra::office
