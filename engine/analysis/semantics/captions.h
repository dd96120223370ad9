// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

namespace captions {

struct Thresholds
{
    double maxDistance = 36; ///< points between a figure and its caption: three lines of text
};

inline constexpr Thresholds thresholds;

} // namespace captions

/// Sets Paragraph::captionOf for the captions of the page: the nearer one of the figures directly before and after in
/// reading order. A caption that is nearer to a table, or far from figures, belongs to none. The figures must have
/// their ids.
void linkCaptions(Page &page);

} // namespace quorra::model
