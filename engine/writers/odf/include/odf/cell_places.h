// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::office {

/// A paragraph at its place in its cell: its alignment, indents and space above are against the cell's edges.
struct CellParagraph
{
    model::Paragraph paragraph;
    double lineHeight = 0; ///< in points; 0 for the font's own
};

/// The cell's paragraphs, at their places in it. Their lines are set no wider apart than the cell has room for, so that
/// rows keep their heights. A cell without a box gives its paragraphs as they are.
std::vector<CellParagraph> placedInCell(const model::Cell &cell);

/// Where the cell's text stands between its upper and lower side: "top", "middle" or "bottom", as ODF names it. The
/// cell must hold text.
QString verticalAlignment(const model::Cell &cell);

} // namespace quorra::office
