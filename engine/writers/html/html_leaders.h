// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <QString>

#include <vector>

namespace quorra {

/// A line of a table of contents: its text, the leader dots, and its page number. Missing parts are empty.
struct LeaderLine
{
    std::vector<model::Run> entry;
    QString dots;
    std::vector<model::Run> page;
};

/// Returns the entries of a paragraph with these runs that is part of a table of contents, which has leader dots
/// followed by a page number. An entry can have several lines; an entry without dots ends at a page number with a wide
/// gap before it. Empty for other text.
std::vector<LeaderLine> leaderLines(const model::Paragraph &paragraph, const std::vector<model::Run> &runs);

} // namespace quorra
