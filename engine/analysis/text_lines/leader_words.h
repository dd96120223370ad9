// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QString>

#include <cstddef>
#include <utility>
#include <vector>

namespace quorra::model {

namespace leaderWords {

struct Thresholds
{
    qsizetype minDots = 5; ///< of a leader; an ellipsis at the end of a sentence has four
    double dotWidth = 0.3; ///< em; at most so wide is each dot of a word whose letters' places are not known
};

inline constexpr Thresholds thresholds;

} // namespace leaderWords

/// Whether the text is part of a leader: nothing but dots.
bool isLeaderPart(const QString &text);

/// The words with indexes [first, second) that are the first leader at or after `from`: dots that lead from one word of
/// a line to the next. Both are the number of words if there is none.
std::pair<std::size_t, std::size_t> findLeader(const std::vector<QString> &texts, std::size_t from);

/// Cuts leaders off words that they are drawn together with ("Contents.....", "Contents.....4"), so that they are words
/// of their own. Where the cuts are is estimated from the number of characters.
void cutLeadersOff(std::vector<RawWord> &words);

} // namespace quorra::model
