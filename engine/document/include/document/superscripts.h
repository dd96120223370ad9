// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// For each word of the line whether it stands raised or lowered beside the text: a word clearly smaller than the
/// line's text, off its baseline, and next to a word of that text or to another such sign. Turned text has none.
std::vector<Script> scriptsOf(const Line &line);

} // namespace quorra::model
