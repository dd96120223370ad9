// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// The regions of a page that are drawings: curves and slanted lines, together with the rules and fills among them, bar
/// charts, the networks given, and empty frames. Small ones are kept as well, unless words are in them. Areas in
/// `taken` (tables) are left out. A region that is nearly the whole page is a background of its text, not a drawing.
std::vector<Box>
findDrawings(const RawPage &page, const std::vector<Box> &taken, const std::vector<Box> &networks = {});

} // namespace quorra::model
