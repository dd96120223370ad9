// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <cstddef>

namespace quorra::model {

namespace roles {

/// Font sizes are relative to that of the body text.
struct Thresholds
{
    double minHeadingSize = 1.12;        ///< of the body's font size; headings are set at least a point larger
    double sameHeadingSize = 0.94;       ///< of a level's largest font size; headings down to this share have its level
    int maxHeadingLength = 180;          ///< characters; longer texts are paragraphs in large type
    std::size_t maxHeadingLines = 3;     ///< likewise
    double minBoldHeadingSize = 0.98;    ///< of the body's font size; a bold line of smaller type is a label
    int maxBoldHeadingLength = 100;      ///< characters; only short bold texts of the body's size are headings
    std::size_t maxBoldHeadingLines = 2; ///< likewise
    std::size_t maxHeadingLevel = 3;     ///< deeper levels are not distinguished
    qsizetype maxCaption = 150;          ///< characters; longer texts are sentences that begin with a figure's name
    double maxFootnoteSize = 0.93;       ///< of the body's font size; notes are set smaller than this
    double minFootnoteTop = 0.6;         ///< share of the page's height; notes are in the lower part of the page
    double listLevelIndent = 5;          ///< points between the marks of two levels of a list
    double minIndent = 2;                ///< points; text that is indented more continues the list around it
};

inline constexpr Thresholds thresholds;

} // namespace roles

/// Gives the paragraphs of the whole document their roles: headings by their size against the body text and one
/// another, captions, footnotes, list levels.
void assignRoles(Document &document);

/// Marks paragraphs that go on from one column or page to the next.
void markContinuations(Document &document);

} // namespace quorra::model
