// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "flow_plan.h"

namespace quorra::office {

/// By how much the lines and the spaces of a page come closer together, 1 for not at all.
struct Fit
{
    double lines = 1;
    double spaces = 1;
};

/// What makes the text of the page, which runs longer in other fonts and without hyphens, fit into its room again: a
/// few lines more would begin a page of their own.
Fit fitOf(const FlowPage &page);

/// Brings the lines and the spaces of the plan closer together, so that the page keeps to its room.
void fitToRoom(FlowPage &page);

} // namespace quorra::office
