// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

namespace quorra::model {

/// Puts the words of each cell together, finds the cells' backgrounds and counts the heading rows.
Table finishedTable(TableWords found, const std::vector<Fill> &fills, StyleTable &styles);

} // namespace quorra::model
