// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "paragraphs/tabs.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace paragraphBreaks {

/// Baseline distances and lengths in em are multiples of the text's font size.
struct Thresholds
{
    // Baseline distances.
    double minSampleStep = 0.8;     ///< em; smaller distances say nothing about the usual one (overprinted text)
    double maxSampleStep = 2.2;     ///< em; larger ones are gaps between paragraphs, unless the line before is full
    double maxFullStep = 2.7;       ///< em; between a line with no room for the next word and that word: double spacing
    std::size_t minFullSteps = 3;   ///< of them; fewer do not show the usual distance
    double defaultStep = 1.2;       ///< em; the usual distance where no lines show it
    double minUsualStep = 0.95;     ///< em; text is hardly ever set closer
    double maxUsualStep = 2.6;      ///< em; double-spaced text
    double sameStep = 0.05;         ///< share of the distance by which the lines of a paragraph may be unevenly spaced
    double maxHyphenatedStep = 1.9; ///< em; a hyphenated word continues on the very next line
    double minGap = 1.28;           ///< of the distance of the paragraph's lines; wider ones begin a paragraph
    double minOwnStep = 1.05;       ///< em; lines set closer are judged as if this far apart
    double maxShrink = 0.6;         ///< of the paragraph's own distance; much closer lines are another paragraph

    // Style.
    double maxSizeRatio = 1.13;        ///< of the font sizes of two lines of one paragraph; mixed fonts differ by less
    double minSizeRatio = 0.885;       ///< the same the other way round
    std::size_t minDirectionWords = 3; ///< on both lines, before a change of direction counts: short lines are neutral

    // Position in the column.
    double minIndent = 0.7;         ///< em; the least indent in use is one em, less rounding
    double centredTolerance = 0.03; ///< share of the column's width; between the spaces on both sides
    double minCentredTolerance = 4; ///< points; the same in narrow columns
    double minCentredWidth = 0.45;  ///< share of the column's width; centred lines are hardly broken before
    double wordSpace = 0.8;         ///< em; a wide space of justified text before the word that did not fit
    double minEmptyShare = 0.6;     ///< share of the column's width; a line so short ended early in any case
};

inline constexpr Thresholds thresholds;

} // namespace paragraphBreaks

/// Decides between which text lines of a column one paragraph ends and the next begins. The lines must outlive it.
class ParagraphBreaks
{
public:
    ParagraphBreaks(const std::vector<TextLine> &lines, const Box &column);

    /// Whether a new paragraph begins with line `next`, when the current one began with line `first`; next > first.
    bool startsAt(std::size_t first, std::size_t next) const;

    /// The tabs of the line.
    const std::vector<LineTab> &tabs(std::size_t line) const { return m_tabs[line]; }

    /// The usual distance of baselines, in points, for text of that font size.
    double usualStep(double size) const;

private:
    struct LineStyle
    {
        bool bold = false;
        bool fixedPitch = false;
        bool rightToLeft = false;
        double size = 0; ///< mean over the letters
    };

    static LineStyle styleOf(const TextLine &line);
    bool differsInStyle(std::size_t a, std::size_t b) const;
    bool beginsWithMark(std::size_t i) const;
    bool isListStart(std::size_t first, std::size_t next) const;
    bool isIndentBreak(std::size_t first, std::size_t next) const;
    bool isCentred(std::size_t i) const;
    bool lineEndedEarly(std::size_t before, std::size_t next) const;
    double roomAfter(std::size_t before) const;
    double ownStep(std::size_t first, std::size_t next) const;
    bool endsAtTab(std::size_t before, std::size_t next) const;
    QString lastWord(std::size_t i) const;
    QString firstWord(std::size_t i) const;

    const std::vector<TextLine> &m_lines;
    Box m_column;
    std::vector<LineStyle> m_styles;
    std::vector<std::vector<LineTab>> m_tabs;
    double m_step = 0; ///< the usual distance of baselines, in em
};

} // namespace quorra::model
