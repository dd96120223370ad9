// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_runs.h"

#include <QString>

#include <optional>

namespace quorra::office {

/// The height of a paragraph without text, in points: that of its line.
inline constexpr double emptyParagraphHeight = 1.2;

/// How a paragraph stands in what surrounds it. Lengths in points.
struct ParagraphPlace
{
    double left = 0;  ///< added to its own left indent
    double right = 0; ///< added to its own right indent
    double above = 0; ///< added to its own space above
    /// Lines keep the page's distance; otherwise the font's own, so that text can be edited freely.
    bool exactLeading = true;
    double lineHeight = 0;    ///< of exact leading, where the surroundings decide it; 0 for the paragraph's own
    bool breakBefore = false; ///< begins a new page
    bool breakColumn = false; ///< begins a new column
    QString masterPage;       ///< begins a new page of this master page
    QString bookmark;         ///< name of a link target at the paragraph's start
    std::optional<Colour> background;
    model::Border ruleAbove; ///< separator lines of the page that the paragraph takes with it
    model::Border ruleBelow;
    double gapAbove = 2; ///< between such a line and the text
    double gapBelow = 2;
    bool withLinks = true;
    bool withLists = true;    ///< bullets as list items; otherwise as text
    bool withHeadings = true; ///< headings as such; otherwise as paragraphs
};

/// "0.50pt solid #000000", or "none" for width 0.
QString borderText(const model::Border &border);

/// The attributes that draw the place's separator lines.
Attributes ruleBorders(const ParagraphPlace &place);

/// The definition of the paragraph's style; textStyle is that of most of its text.
Element paragraphStyle(const model::Paragraph &paragraph, const ParagraphPlace &place, const model::Style &textStyle);

/// The same for a paragraph without text, whose line is to take no height of its own.
Element emptyParagraphStyle(const model::Paragraph &paragraph, const ParagraphPlace &place);

/// True when the list mark is a bullet that the document can number for itself: a single character that does not count.
bool isBullet(const model::Paragraph &paragraph);

/// Writes the paragraph as a heading, a list item or plain paragraph.
void writeParagraph(const Sink &sink, const model::Paragraph &paragraph, const ParagraphPlace &place);

/// An empty paragraph of almost no height, for breaks and to hold frames.
void writeAnchorParagraph(const Sink &sink, const ParagraphPlace &place);

/// Begins such a paragraph, for frames to be put in.
[[nodiscard]] XmlElement beginAnchorParagraph(const Sink &sink, const ParagraphPlace &place);

} // namespace quorra::office
