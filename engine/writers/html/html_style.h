// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <QString>
#include <QStringList>

namespace quorra {

/// Returns the style of most of the document's text.
model::Style usualStyle(const model::Document &document);

/// Returns the style sheet of the file.
QString styleSheet(const model::Document &document, const model::Style &usual);

/// Returns the style of the element around the runs: that of most of the text, or the fallback if there are no letters.
/// It is neither italic nor, except in headings, bold: these are elements inside it.
model::Style elementStyle(const std::vector<model::Run> &runs, const model::Style &fallback, bool heading);

/// Returns the same for all cells of a table.
model::Style elementStyle(const model::Table &table, const model::Style &fallback);

/// Returns the style declarations for the differences between a run and the element around it; empty if there are none.
/// Bold and italic are elements, but text in a heading is bold unless declared otherwise.
QString runStyle(const model::Style &style, const model::Style &around, bool heading);

/// Return the declarations of a paragraph (its indents, and the differences between its style and the one around it)
/// and of a cell.
QString paragraphStyle(const model::Paragraph &paragraph, const model::Style &style, const model::Style &around);
QString cellStyle(const model::Cell &cell);

/// Returns "name:width solid colour"; empty for a border of width 0.
QString borderStyle(const char *name, const model::Border &border);

/// Joins style declarations, leaving out empty ones.
QString joinedStyle(QStringList parts);

} // namespace quorra
