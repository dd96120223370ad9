// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// The boxes around networks: separate frames that are joined by lines, such as flow charts,
/// organisation charts and class diagrams. Frames that share their sides are one frame, so that a table is none; lines
/// that join the corners of frames are borders of a table with open sides.
std::vector<Box> findNetworks(const RawPage &page);

} // namespace quorra::model
