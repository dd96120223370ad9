// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "text_lines/text_lines.h"

#include <optional>

namespace quorra::model {

namespace leaders {

struct Thresholds
{
    qsizetype minDots = 4;   ///< in a word, or as words of a line
    double maxDotGap = 1.5;  ///< em; between the dots of a leader
    double maxWordGap = 0.5; ///< em; wider gaps after a leader divide texts
    qsizetype minDashes = 8; ///< in a line that is typed instead of drawn
};

inline constexpr Thresholds thresholds;

} // namespace leaders

/// Whether the line has a leader, "....." or ". . . . .".
bool hasLeader(const TextLine &line);

/// Whether the line has a leader and one text after it, as in a table of contents.
bool leadsToOneText(const TextLine &line);

/// The line without its leaders; without words when it has no others.
TextLine withoutLeaders(const TextLine &line);

/// The text without the leader at its end.
QString withoutLeaders(const QString &text);

/// Whether the word is nothing but dots or dashes, as they make up leaders and typed lines.
bool isLeaderOrTypedRule(const QString &text);

/// The rules that a typewriter draws with a line of dashes, one for each word; none for any other line.
std::vector<Rule> typedRules(const TextLine &line);

} // namespace quorra::model
