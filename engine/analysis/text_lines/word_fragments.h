// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// Whether the second word, which comes after the first one on the raw page, is the rest of the first: the PDF library
/// knows from the file which pieces are one word, however deep an index of an index hangs.
bool continuesWord(const RawWord &word, const RawWord &next);

/// Whether the two words that come after the first one are a fraction set small in its line: one stands over the other,
/// and both reach out of the line.
bool isSmallFraction(const RawWord &word, const RawWord &first, const RawWord &second);

/// A piece of a word that stands in no group goes to the group of its word's other pieces: the edge of a picture or a
/// table must not cut "g" from its index. The groups' words are words of the page.
void keepFragmentsTogether(const RawPage &raw, const std::vector<WordRefs *> &groups);

} // namespace quorra::model
