// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "tags/tagged_text.h"
#include "text_lines/text_lines.h"

#include <optional>
#include <set>
#include <vector>

// What the sound tags of a file decide. Words without a tag are analysed from the page alone.
namespace quorra::model {

namespace tagUse {

struct Thresholds
{
    qsizetype maxBullet = 2;  ///< characters; a longer mark without a label of its own is a number or text
    std::size_t minPages = 2; ///< pages; if so many have unsound tags, and fewer have sound ones, no tags are used
    double minMeantGap = 0.4; ///< share of the column's width; a line so short was broken on purpose
};

inline constexpr Thresholds thresholds;

} // namespace tagUse

/// Assigns the words of pages with sound tags to their paragraphs, and removes from all other words what the file says
/// about them. Where most pages have tags that are not sound, none are used. `text` must outlive the pages.
void applyTags(std::vector<RawPage> &pages, const TaggedText &text);

/// Adds what the file calls artifacts to the words of the page's header and footer, if it is above or below all of
/// the page's content. Artifacts elsewhere stay text: nothing is lost that somebody could read.
void addArtifacts(const RawPage &page, std::set<const RawWord *> &heads);

/// The lines of a column, cut where the words of another paragraph begin, in the order in which the tags say that they
/// are read. Lines without tags stay behind the line before them, artifacts behind the paragraph that contains them,
/// and notes at the end.
std::vector<TextLine> inReadingOrder(const std::vector<TextLine> &lines);

/// Whether a paragraph ends between two lines that follow one another; nothing if the tags do not decide.
std::optional<bool> paragraphEndsBetween(const TextLine &line, const TextLine &next);

/// The tags of a paragraph that was made from text lines.
struct ParagraphTag
{
    const TaggedParagraph *paragraph = nullptr; ///< null where the tags say nothing
    std::size_t labelWords = 0;                 ///< how many words at the beginning of the first line are a list mark
};

ParagraphTag tagOf(const std::vector<TextLine> &lines);

/// Gives the paragraph the role of its tag. Its lines are set; a list mark of several words becomes one word.
void setRole(Paragraph &paragraph, const ParagraphTag &tag);

/// Marks the ends of lines in a tagged paragraph at which the text was broken on purpose, as in an address: more of the
/// next line would have fitted.
void keepMeantBreaks(Paragraph &paragraph, const Box &column);

} // namespace quorra::model
