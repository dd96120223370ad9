// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// The words of a row in reading order, with blanks where the page has them.
Line lineOf(const TextLine &row, StyleTable &styles);

/// Puts the rows of one column together to paragraphs: joined over line ends, cut at wider gaps, indents, short last
/// lines, changes of size or weight, and list marks. The column's edges tell what is indented or short.
std::vector<Paragraph> paragraphsOf(const std::vector<TextLine> &rows, const Box &column, StyleTable &styles);

/// The paragraphs of a table's cell; rows that only wrap become one.
std::vector<Paragraph> cellParagraphs(const WordRefs &words, const Box &cell, StyleTable &styles);

/// Whether most letters of the paragraph are of one width and the ends of its lines are meant.
bool isPreformatted(const Paragraph &paragraph);

/// Whether the text ends as a sentence, a heading line or a list entry does.
bool endsSentence(const QString &text);

} // namespace quorra::model
