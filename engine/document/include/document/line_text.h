// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// Whether the line ends in a hyphen that only the line break put there, given the word the next line begins with.
bool endsInHyphen(const QString &line, const QString &nextWord);

/// Appends a line to runs that hold the lines before it: with a blank, or without a hyphen that the line end put there,
/// or directly between ideographs. With keepBreak a '\n' goes between instead.
void appendLine(std::vector<Run> &runs, const Line &line, bool keepBreak);

/// The words of a line as text: blanks where the page has them.
QString lineText(const Line &line);

/// The text of the runs, one after the other.
QString plainText(const std::vector<Run> &runs);

} // namespace quorra::model
