// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "columns/page_segmentation.h"
#include "document/document.h"
#include "tags/tagged_text.h"
#include "text_lines/text_lines.h"

#include <set>
#include <vector>

namespace quorra::model {

namespace pageBuilder {

struct Thresholds
{
    double minScanArea = 0.8; ///< share of a page without text; the area of its images that makes it a scan
    double blockMargin = 2;   ///< points around a table or figure; rules and fills inside it belong to the block
    double minLostInk = 6;    ///< points; smaller marks that no figure shows are specks
};

inline constexpr Thresholds thresholds;

} // namespace pageBuilder

/// Builds one page with upright text (see rotatedUpright). `heads` are the words of its header and footer; all of them
/// are in Page::header afterwards. `tagged` are the tables that the words' tags refer to. Adds the gaps between
/// its columns to `gaps`.
Page buildPage(
    const RawPage &raw, const std::set<const RawWord *> &heads, const std::vector<TaggedTable> &tagged,
    StyleTable &styles, PageGaps &gaps);

} // namespace quorra::model
