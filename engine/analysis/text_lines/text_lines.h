// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/characters.h"
#include "base/statistics.h"
#include "document/raw_page.h"

#include <cstddef>
#include <vector>

namespace quorra::model {

namespace textLines {

/// Lengths in em are multiples of the font size of the text that is looked at.
struct Thresholds
{
    double capHeight = 0.72; ///< em; the height of capitals in most fonts
    double ascent = 0.8;     ///< em; the part of a line box above the baseline, as most fonts divide it
    double descent = 0.2;    ///< em; the part of a line box below the baseline

    double minSharedHeight = 0.5;  ///< share of the lower body; words of one line overlap by more than this
    std::size_t maxOpenLines = 4;  ///< lines that a word may join; words are sorted by baseline, so its line is recent
    double minInitialSize = 1.8;   ///< of the line's font size; larger words are initials that reach over several lines
    double maxInitialShift = 0.35; ///< em of the smaller text; from an initial's baseline to the one of its line
    qsizetype maxMark = 2;         ///< characters; so short a word that is larger than its line, such as a bracket over
                                   ///< several lines or a drop cap, does not set the line's height
    double maxDropCapGap = 1.5;    ///< em; from a drop cap to the lines beside it
    double maxDropCapOverlap = 0.3;  ///< em; a drop cap's box may reach into the lines beside it by its side bearing
    std::size_t minDropCapLines = 2; ///< beside a drop cap; a larger first letter of one line is no drop cap

    double maxShiftedSize = 0.85;     ///< of the text's font size; superscripts and subscripts are smaller than this
    double maxShiftedGap = 0.25;      ///< em; a superscript or subscript is drawn this close to its base
    double maxNoteMarkGap = 0.45;     ///< em; a space may separate the raised mark of a note from its text
    double maxShiftedReach = 0.5;     ///< em; the farthest that one is above or below the bodies of its line
    std::size_t maxShiftedWords = 8;  ///< on one line; more small words are a text line of their own
    double maxBaselineDistance = 1.1; ///< em; the farthest shift of one, for example of the limits of a sum

    double maxSizeRatio = 1.3; ///< of the next word's font size; a larger word on the line does not widen its gaps more
    double sameEdge = 2;       ///< points; edges of text that are no farther apart are aligned
};

inline constexpr Thresholds thresholds;

} // namespace textLines

/// Words of a raw page, which must outlive the list.
using WordRefs = std::vector<const RawWord *>;

/// Words that are side by side on one line, from left to right.
struct TextLine
{
    WordRefs words;
    Box box;              ///< around the words' bodies (see bodyOf); beside a drop cap it begins with the drop cap
    double baseline = 0;  ///< of the largest word, short ones that are larger than the others left out
    double size = 0;      ///< font size of the same word
    int dropCapLines = 0; ///< how many lines the drop cap takes up with which this one begins; 0 for none
};

/// Words of a text line without a wide gap between them.
struct Segment
{
    WordRefs words;
    Box box; ///< around the words' bodies
};

/// The word's box from the baseline up to the height of capitals. The full boxes of neighbouring lines overlap by their
/// ascenders and descenders, the bodies do not. A rotated word has its whole box.
inline Box bodyOf(const RawWord &word)
{
    const double height = textLines::thresholds.capHeight * word.style.size;
    return word.rotation != 0 ? word.box : Box{word.box.left, word.baseline - height, word.box.right, word.baseline};
}

/// Groups upright words into text lines, sorted from top to bottom. Superscripts and subscripts belong to the line of
/// their base, the mark of a note to the line that it begins, and a drop cap to the first of the lines beside it. No
/// words give no lines.
std::vector<TextLine> textLinesOf(WordRefs words);

/// Splits a text line at gaps wider than `maxGap`, in em. A line without words has no segments.
std::vector<Segment> segmentsOf(const TextLine &line, double maxGap);

/// The texts of the words with that separator between them.
QString joinedText(const WordRefs &words, const QString &separator = {});

} // namespace quorra::model
