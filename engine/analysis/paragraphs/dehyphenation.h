// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Whether the text ends in a hyphen that only the end of its line put there, given the word the next line begins with.
bool endsInHyphen(const QString &line, const QString &nextWord);

/// What stands between a line of a paragraph and the next line, which begins with that word: a space, nothing between
/// ideographs and after a hyphen that is the word's own, or the hyphen that a line end put into a word. With keepBreak
/// a line break stands in place of the first two.
Separator lineEnd(const Line &line, const QString &nextWord, bool keepBreak);

} // namespace quorra::model
