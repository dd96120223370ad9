// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <vector>

namespace quorra {

/// The text between the tabs of a paragraph with these runs: one part more than there are tabs.
std::vector<std::vector<model::Run>> tabbedParts(const std::vector<model::Run> &runs);

/// Whether the paragraph is an entry whose last part is at the right edge of its column, or behind dots, such as
/// the page number in a table of contents.
bool endsAtRightTab(const model::Paragraph &paragraph);

} // namespace quorra
