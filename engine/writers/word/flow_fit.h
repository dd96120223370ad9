// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "flow_plan.h"

namespace quorra::office {

/// The reduction of lines and spaces of a page.
struct Fit
{
    double lines = 1;  ///< factor of the line heights
    double spaces = 1; ///< share of what spaces exceed their minimum by that is kept
};

/// Returns the reduction with which the page fits its room, or the maximum reduction if it does not. Text is longer in
/// other fonts and without hyphenation, and a few lines too many would begin another page.
Fit fitOf(const FlowPage &page);

/// Reduces the line heights and spaces of the plan so that the page fits its room.
void fitToRoom(FlowPage &page);

} // namespace quorra::office
