// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

namespace tableContinuations {

struct Thresholds
{
    double sameRuledEdge = 3; ///< points; between the edges of a drawn column on two pages
    double sameOpenEdge = 14; ///< points; the same where only text shows the columns: its width differs by page
    double maxTop = 0.35;     ///< of the page's height; a table that begins lower does not go on from the page before
    double minBottom = 0.6;   ///< of the page's height; a table that ends higher does not go on to the next page
    std::size_t minLabelWords = 2; ///< that a title above the table has in common with the one on the page before
    std::size_t maxTitleLines = 3; ///< longer paragraphs before a table are text
};

inline constexpr Thresholds thresholds;

} // namespace tableContinuations

/// Sets Table::continuesPrevious for the tables at the top of a page that go on from the end of the page before: both
/// have the same number of columns, and the same rows of heads or the same edges. A title ("Table 3, continued") may
/// stand above the second part, notes at the foot below the first. The rows that it repeats are its head rows. Also
/// sets Table::continuesRow where the page break divides a row: all texts of the row go on in the middle of a sentence.
/// The pages must be upright, with the roles of paragraphs known.
void markTableContinuations(Document &document);

} // namespace quorra::model
