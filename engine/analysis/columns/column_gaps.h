// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "columns/page_segmentation.h"

#include <optional>

namespace quorra::model {

/// A blank upright strip between two columns of text.
struct ColumnGap
{
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// The tallest blank strip with running text on both of its sides; nothing for text in one column.
std::optional<ColumnGap> findColumnGap(const RegionItems &items);

/// Whether the words are lines of running text: at least three lines, most of them long and made of letters.
bool isRunningText(const WordRefs &words);

} // namespace quorra::model
