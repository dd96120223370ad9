// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

namespace dehyphenation {

struct Thresholds
{
    qsizetype minLength = 2; ///< characters: the hyphen and the letter before it
};

inline constexpr Thresholds thresholds;

} // namespace dehyphenation

/// Whether the text ends in a hyphen that was put there by hyphenation: a letter before it, and a lower case letter at
/// the start of `nextWord`, with which the next line begins. Empty texts never do.
bool endsInHyphen(const QString &line, const QString &nextWord);

/// The separator between a line of a paragraph and the next line, which begins with `nextWord`: Hyphen for a word that
/// was hyphenated, None between ideographs and after a hyphen that belongs to the word ("Anglo-" and "Saxon"), else
/// Space. With `keepBreak` (preformatted text), LineBreak instead of None and Space.
Separator lineEnd(const Line &line, const QString &nextWord, bool keepBreak);

/// Restores the hyphens of compounds that were divided at a line end, such as "at-risk": where the text of the document
/// contains the word with its hyphen elsewhere and more often than without it; or, if it contains neither, where both
/// parts are words of the document and the first one is used for compounds.
void keepHyphensOfCompounds(Document &document);

} // namespace quorra::model
