// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// The boxes of bar charts: three filled rectangles or more that are on one line (or hang on one), equally thick and
/// of different lengths, with next to no text inside. The labels along that line belong to the box. taken are boxes in
/// which fills are something else, the tables.
std::vector<Box> findBarCharts(const RawPage &page, const std::vector<Box> &taken);

} // namespace quorra::model
