// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// Gives each alternative text to the figure that covers most of what it stands for. All boxes are on the displayed
/// page.
void giveAlternatives(Page &page, const std::vector<Alternative> &alternatives);

} // namespace quorra::model
