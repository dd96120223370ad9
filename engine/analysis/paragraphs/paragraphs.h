// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "paragraphs/tabs.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace paragraphs {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    double minFixedPitch = 0.8; ///< share of the text; comments in other fonts leave preformatted text what it is

    // Alignment.
    double centredTolerance = 0.02; ///< share of the column's width; between centres of lines, or spaces beside one
    double minCentredTolerance = 3; ///< points; the same in narrow columns
    double sameCentre = 3;          ///< points between the middles of centred lines; columns are measured less exactly
    double minInset = 0.06;         ///< share of the column's width; a single line farther left is not centred
    double minRightInset = 0.4;     ///< share of the column's width; a right-aligned single line is a short one

    // List marks.
    double minMarkGap = 0.35; ///< em; "A. Smith" and "1. January" have a word space, a list mark a wider one

    // Spaces between words that the page does not say anything about.
    double minWordSpace = 0.15;    ///< em; the narrowest word space in use
    double maxScriptOverlap = 0.1; ///< em; a subscript starts this close to the end of its letter
    double minBacktrack = 0.3;     ///< em; a subscript under a superscript starts this far to the left of its end
};

inline constexpr Thresholds thresholds;

} // namespace paragraphs

/// The words of a text line in reading order, with the spaces and tabs that are between them on the page. The words'
/// styles are added to `styles`.
Line lineOf(const TextLine &line, StyleTable &styles, const std::vector<LineTab> &tabs = {});

/// Splits the text lines of one column into paragraphs: at wide gaps, indents, short last lines, changes of size or
/// weight, and list marks (see ParagraphBreaks). The column's edges show what is indented or short. The paragraphs hold
/// every line, with what separates it from the next one.
std::vector<Paragraph> paragraphsOf(const std::vector<TextLine> &lines, const Box &column, StyleTable &styles);

/// The paragraphs of a table's cell, rotated words first. The cell's edges count as those of a column.
std::vector<Paragraph> cellParagraphs(const WordRefs &words, const Box &cell, StyleTable &styles);

/// Whether the paragraph is preformatted text: most letters have fixed pitch, and its line breaks are kept.
bool isPreformatted(const Paragraph &paragraph);

} // namespace quorra::model
