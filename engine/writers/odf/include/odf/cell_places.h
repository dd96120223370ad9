// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::office {

/// A paragraph positioned in its cell: its alignment, indents and space above refer to the edges of the cell.
struct CellParagraph
{
    model::Paragraph paragraph;
    double lineHeight = 0; ///< points; 0 for the natural height of the font
};

/// Returns the paragraphs of the cell with their positions in it. Lines are not higher than the cell allows, so that
/// rows keep their heights. If the cell has no box, the paragraphs are returned unchanged.
std::vector<CellParagraph> placedInCell(const model::Cell &cell);

/// Returns the vertical alignment of the cell's text as ODF names it: "top", "middle" or "bottom". The cell must
/// contain text.
QString verticalAlignment(const model::Cell &cell);

} // namespace quorra::office
