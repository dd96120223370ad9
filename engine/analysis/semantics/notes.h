// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

namespace notes {

struct Thresholds
{
    double maxSmallSize = 0.93; ///< of the body's font size; notes are set smaller than this
    qsizetype maxDigits = 3;    ///< of the number of a note; longer ones are years and amounts
};

inline constexpr Thresholds thresholds;

} // namespace notes

/// Finds the notes at the foot of columns whose marks are in the text of their page, as a raised number or as a sign at
/// the end of a word. Makes them footnotes, and links the marks to them (Paragraph::note, Word::note). Paragraphs that
/// no mark refers to stay as they are. `bodySize` is the font size of the document's body text in points.
void linkNotes(Document &document, double bodySize);

} // namespace quorra::model
