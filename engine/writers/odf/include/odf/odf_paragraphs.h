// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/list_plan.h"
#include "odf/odf_runs.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quorra::office {

/// The height of a paragraph without text, in points.
inline constexpr double emptyParagraphHeight = 1.2;

/// Bookmarks and comments at the beginning of a paragraph. The comments belong to the document.
struct Marks
{
    QStringList bookmarks; ///< names of link targets
    std::vector<const model::Comment *> comments;

    bool isEmpty() const { return bookmarks.isEmpty() && comments.empty(); }
    void add(const Marks &more);
};

/// How a paragraph is placed in its context. Lengths in points.
struct ParagraphPlace
{
    double left = 0;  ///< added to its own left indent
    double right = 0; ///< added to its own right indent
    double above = 0; ///< added to its own space above
    /// Lines have the distance that they have on the page; otherwise that of the font, so that text can be edited
    /// freely.
    bool exactLeading = true;
    double lineHeight = 0;         ///< with exactLeading; 0 for that of lineLayout()
    bool linesGrow = false;        ///< with exactLeading: lines become higher for larger text
    bool inCell = false;           ///< in a cell of a table
    bool breakBefore = false;      ///< begins a new page
    bool breakColumn = false;      ///< begins a new column
    QString masterPage;            ///< begins a new page of this master page
    std::optional<int> pageNumber; ///< with masterPage: pages are counted from this number on
    Marks marks;
    std::optional<Colour> background;
    model::Border ruleAbove; ///< drawn lines that become borders of the paragraph
    model::Border ruleBelow;
    double gapAbove = 2; ///< between ruleAbove and the text
    double gapBelow = 2;
    bool withLinks = true;
    const model::ListPlace *list = nullptr; ///< an item of a list; otherwise the mark is text
    bool headsContents = false;             ///< the heading of a table of contents
    bool withHeadings = true;               ///< headings as such; otherwise as paragraphs
};

/// The number of levels for which entries of a table of contents have named styles.
inline constexpr int contentsLevels = 6;

/// Returns the name of the style of entries of this level, from 1.
QString contentsStyle(int level);

/// Returns "0.50pt solid #000000", or "none" for width 0.
QString borderText(const model::Border &border);

/// Returns the attributes for the borders ruleAbove and ruleBelow.
Attributes ruleBorders(const ParagraphPlace &place);

/// Returns the definition of the paragraph's style; textLook is that of most of its text (see textAttributes()).
Element paragraphStyle(const model::Paragraph &paragraph, const ParagraphPlace &place, const Attributes &textLook);

/// Returns the same for a paragraph without text, of emptyParagraphHeight.
Element emptyParagraphStyle(const model::Paragraph &paragraph, const ParagraphPlace &place);

/// Writes the paragraph as a heading, a list item or a plain paragraph.
void writeParagraph(const Sink &sink, const model::Paragraph &paragraph, const ParagraphPlace &place);

/// Writes an empty paragraph of emptyParagraphHeight, which carries a break.
void writeAnchorParagraph(const Sink &sink, const ParagraphPlace &place);

/// Begins such a paragraph as the anchor of frames, which follow, with the spaces and indents of another paragraph.
[[nodiscard]] XmlElement
beginAnchorParagraph(const Sink &sink, const ParagraphPlace &place, const model::Paragraph &spaces = {});

} // namespace quorra::office
