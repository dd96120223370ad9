// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"

namespace quorra::model {

/// Gives the cells of a column the alignment by which their texts really stand below one another: numbers of unequal
/// length share their right edge, however much blank space a single cell has on its sides. Numbers and other texts are
/// looked at apart; a column in which no edge agrees keeps what it has, and so do texts that do not stand at the edge.
void alignColumns(Table &table);

} // namespace quorra::model
