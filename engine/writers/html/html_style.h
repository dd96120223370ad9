// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <QString>
#include <QStringList>

namespace quorra {

/// The style of most of the document's text.
model::Style usualStyle(const model::Document &document);

/// The style sheet of the whole file.
QString styleSheet(const model::Document &document, const model::Style &usual);

/// The style of the element around the runs: that of most of them, or the fallback without letters. Bold and italic
/// are elements of their own inside it; a heading keeps bold.
model::Style elementStyle(const std::vector<model::Run> &runs, const model::Style &fallback, bool heading);

/// The same for all cells of a table.
model::Style elementStyle(const model::Table &table, const model::Style &fallback);

/// How the style of a run differs from the style around it, as style declarations; empty for no difference. Bold and
/// italic are elements, except that a heading's text is bold unless it says otherwise.
QString runStyle(const model::Style &style, const model::Style &around, bool heading);

/// The declarations of a paragraph's element: indents, and its style as far as it differs from the one around it.
QString paragraphStyle(const model::Paragraph &paragraph, const model::Style &style, const model::Style &around);
QString cellStyle(const model::Cell &cell);

/// "name:width solid colour", empty without a line.
QString borderStyle(const char *name, const model::Border &border);

/// Style declarations in one text; empty ones are left out.
QString joinedStyle(QStringList parts);

/// Whether text of that colour is hardly visible on white paper.
bool isFaint(Colour colour);

} // namespace quorra
