// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <set>
#include <vector>

namespace quorra::model {

/// For each page, the words of headers, footers and page numbers: lines at the top or bottom that come back on other
/// pages with nothing but their numbers changed. A document of fewer than three pages has none.
std::vector<std::set<const RawWord *>> findRunningHeads(const std::vector<RawPage> &pages);

} // namespace quorra::model
