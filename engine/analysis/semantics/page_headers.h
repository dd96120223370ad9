// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <cstddef>
#include <set>
#include <vector>

namespace quorra::model {

namespace pageHeaders {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    double zone = 0.13;       ///< share of the page's height, at its top and bottom, where headers are looked for
    std::size_t maxLines = 3; ///< at each end of the page
    std::size_t minPages = 3; ///< on which a header is repeated, and of a document that has headers
    std::size_t pagesPerHeader = 12; ///< a longer document needs one more repetition for so many pages (chapters)
    double sameHeight = 6;           ///< points; repeated lines stand at the same height, give or take a line's shift
    double minGap = 1.5;             ///< em; between a header and the text, which is farther off than the next line
    double stampGrid = 4;            ///< points; repeated rotated words stand in the same square of such a grid
};

inline constexpr Thresholds thresholds;

} // namespace pageHeaders

/// For each page, the words of headers, footers and page numbers: lines at the top or bottom that are repeated on
/// other pages with nothing but their numbers changed. A document of fewer than three pages has none.
std::vector<std::set<const RawWord *>> findPageHeaders(const std::vector<RawPage> &pages);

/// Moves what stands in the lower half of the page, as it is shown, from its header to its footer.
void separateFooter(Page &page);

} // namespace quorra::model
