// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <utility>
#include <vector>

namespace quorra::model {

/// Text of one style, as a writer takes it.
struct Run
{
    QString text;
    Style style;
    BaselineShift shift = BaselineShift::None;
    QString link;
};

/// The paragraph's text, cut where its style, baseline shift or link changes. Separators are part of the text before
/// them: a space, '\n' for a line break, nothing (and no hyphen) inside a word. The mark of a list item is left out.
std::vector<Run> runsOf(const Paragraph &paragraph);

/// The words of a line in the same way; spaces between them where the page has them.
std::vector<Run> runsOf(const Line &line);

/// The text of all paragraphs of a cell in the same way, with nothing between the paragraphs.
std::vector<Run> runsOf(const Cell &cell);

/// The text of the runs, of the paragraph (without the mark of a list item), or of the line.
QString plainText(const std::vector<Run> &runs);
QString plainText(const Paragraph &paragraph);
QString plainText(const Line &line);

/// Counts the letters and digits of text by their style. Super- and subscripts do not count: they are small.
class StyleCount
{
public:
    void add(const std::vector<Run> &runs);

    /// The style of most letters and digits, of several the first; the fallback where no text was added.
    Style dominant(const Style &fallback = {}) const;

private:
    std::vector<std::pair<qsizetype, Style>> m_counts; // text has few styles: a search is quicker than a hash
};

/// The style that most letters and digits of the text have; the default style without any text.
Style dominantStyle(const std::vector<Run> &runs);

/// The largest size of type in the text, in points; 10 without any text. The mark of a list item does not count.
double largestSize(const Line &line);
double largestSize(const Paragraph &paragraph);

/// The mean size of the paragraph's letters in points; 0 without any.
double meanFontSize(const Paragraph &paragraph);

/// The lines of preformatted text, each with the spaces that put every word into the column in which it stands on the
/// page. The leftmost line begins in the first column. Empty for other text.
std::vector<std::vector<Run>> preformattedLines(const Paragraph &paragraph);

} // namespace quorra::model
