// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// Marks the words of the line, from that one on, that stand raised or lowered beside the text: clearly smaller than
/// the line's text, off its baseline, and next to a word of that text or to another such word. Rotated text has none.
void markSuperscripts(Line &line, std::size_t first = 0);

} // namespace quorra::model
