// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <QString>
#include <QStringList>

namespace quorra {

/// The look of most of the document's text.
model::Style usualStyle(const model::Document &document);

/// The style sheet of the whole file.
QString styleSheet(const model::Document &document, const model::Style &usual);

/// The look that most letters of the runs have, raised and lowered signs left out; the fallback without letters. Bold
/// and italic belong to runs, and so do links; a heading keeps bold.
model::Style mainLook(const std::vector<model::Run> &runs, const model::Style &fallback, bool heading);

/// The same for all cells of a table.
model::Style mainLook(const model::Table &table, const model::Style &fallback);

/// What differs in a run from the look around it, as style declarations; empty for nothing. Bold and italic are
/// elements, except that a heading's text is bold unless it says otherwise.
QString runStyle(const model::Style &style, const model::Style &around, bool heading);

/// The declarations of a paragraph's element: places, and its look where that is not the look around it.
QString paragraphStyle(const model::Paragraph &paragraph, const model::Style &look, const model::Style &around);
QString cellStyle(const model::Cell &cell);

/// "name:width solid colour", empty without a line.
QString borderStyle(const char *name, const model::Border &border);

/// "#rrggbb"
QString colourName(Colour colour);

/// Style declarations in one text; empty ones are left out.
QString joinedStyle(QStringList parts);

/// Whether text of that colour is next to invisible on white paper.
bool isFaint(Colour colour);

/// The address for a link of a run: places in the document are the pages' elements.
QString linkAddress(const QString &link);

} // namespace quorra
