// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <utility>
#include <vector>

namespace quorra::model {

/// Consecutive text of one style, baseline shift, link and page field.
struct Run
{
    QString text;
    Style style;
    BaselineShift shift = BaselineShift::None;
    QString link;
    std::optional<NoteId> note = {};   ///< set for a mark that refers to a note
    PageField field = PageField::None; ///< as in Word
};

/// Splits the text of the paragraph where its style, baseline shift or link changes. Separators belong to the run
/// before them: a space, '\n' for a line break, '\t' for a tab, nothing inside a word (the hyphen is removed). The mark
/// of a list item and the dots of leaders are left out.
std::vector<Run> runsOf(const Paragraph &paragraph);

/// The same for the words of a line, with spaces between them as on the page, also for tabs. Leaders are text.
std::vector<Run> runsOf(const Line &line);

/// The text of all paragraphs of a cell in the same way, with nothing between the paragraphs.
std::vector<Run> runsOf(const Cell &cell);

/// The text of the runs, the paragraph (without the mark of a list item), or the line.
QString plainText(const std::vector<Run> &runs);
QString plainText(const Paragraph &paragraph);
QString plainText(const Line &line);

/// Counts the letters and digits of text by their style, whether underlined and struck through or not. Super- and
/// subscripts are not counted, because they are small.
class StyleCount
{
public:
    void add(const std::vector<Run> &runs);

    /// The style of most letters and digits, the first one in case of a tie; the fallback if no text was added.
    Style dominant(const Style &fallback = {}) const;

private:
    std::vector<std::pair<qsizetype, Style>> m_counts; // text has few styles: a linear search is faster than a hash
};

/// The style of most letters and digits of the text; the default style if there is no text.
Style dominantStyle(const std::vector<Run> &runs);

/// The largest font size in the text, in points; 10 if there is no text. The mark of a list item and a
/// drop cap are ignored.
double largestSize(const Line &line);
double largestSize(const Paragraph &paragraph);

/// The mean font size of the characters of the paragraph, in points; 0 if there are none.
double meanFontSize(const Paragraph &paragraph);

/// The lines of preformatted text, with enough spaces between words to keep their positions on the page. The leftmost
/// line begins in the first column. Empty for other text.
std::vector<std::vector<Run>> preformattedLines(const Paragraph &paragraph);

} // namespace quorra::model
