// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <cstddef>

namespace quorra::model {

namespace headings {

/// Font sizes are relative to that of the body text.
struct Thresholds
{
    double minSize = 1.12;        ///< of the body's font size; headings are set at least a point larger
    double sameSize = 0.94;       ///< of a style's largest font size; headings down to this share have its style
    int maxLength = 180;          ///< characters; longer texts are paragraphs in large type
    std::size_t maxLines = 3;     ///< likewise
    double minBoldSize = 0.98;    ///< of the body's font size; a bold line of smaller type is a label
    int maxBoldLength = 100;      ///< characters; only short bold texts of the body's size are headings
    std::size_t maxBoldLines = 2; ///< likewise
    std::size_t maxBoldStack = 2; ///< bold lines of the body's size that follow one another; more are labels
    int maxLevel = 6;             ///< that outputs have
    double minOutline = 0.5;      ///< share of the outline's entries that must be found as lines of their pages
    std::size_t minEntries = 2;   ///< of an outline that are found, before it says what is a heading
    std::size_t maxTitle = 3;     ///< paragraphs of a document's title
    double maxTitleTop = 0.5;     ///< share of the page's height; a title begins in the upper half of the first page
};

inline constexpr Thresholds thresholds;

} // namespace headings

/// Finds the headings of the document and sets their levels. What decides, in this order: the file's tags, its outline
/// where it is known and agrees with the pages, and the look of the text against the body text: size, weight, and
/// numbers of several parts.
void findHeadings(Document &document);

/// The font size of most letters of the document in points.
double bodySizeOf(const Document &document);

} // namespace quorra::model
