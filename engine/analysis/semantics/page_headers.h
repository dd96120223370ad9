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
    double zone = 0.13;            ///< share of the page's height, at its top and bottom, where headers are looked for
    std::size_t maxLines = 3;      ///< at each end of the page
    std::size_t minPages = 3;      ///< on which a line is repeated at about the same height
    std::size_t minExactPages = 2; ///< on which the outermost line is repeated at exactly the same height
    std::size_t pagesPerHeader = 12; ///< a longer document needs one more repetition for so many pages (chapters)
    double sameHeight = 6;           ///< points; the heights of repeated lines differ by less than a line
    double exactHeight = 1;          ///< points; rounding
    double minGap = 1.5;             ///< em; between a header and the text, which is farther off than the next line
    double minWideGap = 2.4;         ///< em; the same with little other evidence: more than double spacing
    double minFarGap = 6;            ///< em; a blank so high is more than the end of a page that is not full
    double maxSmallSize = 0.92;      ///< of the page's usual font size; headers are often set smaller than the text
    double minRule = 0.6;            ///< share of the text's width; a line so long between header and text separates
                                     ///< them, while the one above notes is shorter
    double minPartGap = 2;           ///< em; between the parts of a header, of which one may be the page number
    double stampGrid = 4;            ///< points; repeated rotated words are in the same square of such a grid
};

inline constexpr Thresholds thresholds;

} // namespace pageHeaders

/// For each page, the words of headers, footers and page numbers: lines at the top or bottom that are repeated on
/// other pages with nothing but their numbers changed. On a page that is the only one of its kind, this is the
/// outermost line if it is a page number, or if it has two of these: small type, a page number at one of its ends, a
/// long rule between it and the text.
std::vector<std::set<const RawWord *>> findPageHeaders(const std::vector<RawPage> &pages);

/// Moves what is in the lower half of the page, as it is shown, from its header to its footer.
void separateFooter(Page &page);

} // namespace quorra::model
