// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <QString>

#include <vector>

namespace quorra {

/// A line of a table of contents: its text, the leading dots, its page number. What it lacks is empty.
struct LeaderLine
{
    std::vector<model::Run> entry;
    QString dots;
    std::vector<model::Run> page;
};

/// The lines of a paragraph with these runs that is part of a table of contents: one with leading dots that a page
/// number follows. An entry of several lines is one; an entry without dots ends where its page number stands apart.
/// Empty for other text.
std::vector<LeaderLine> leaderLines(const model::Paragraph &paragraph, const std::vector<model::Run> &runs);

} // namespace quorra
