// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

namespace quorra::model {

/// The page as the analysis may rely on it, whatever the file held. Afterwards
/// - every number is finite and within `farthest` points of the page's corner; the page has an area;
/// - left <= right and top <= bottom in every box; rules run from left to right or from top to bottom;
/// - sizes of type and widths of rules are positive;
/// - every word has text that is more than blanks.
/// Marks whose place is not known at all are dropped, except words: their text must not be lost, so they go to the
/// nearest place that the page can have. A page that holds all of this already comes back unchanged.
RawPage soundPage(RawPage page);

} // namespace quorra::model
