// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Gives the cells of a column the alignment by which their texts really stand below one another: numbers of unequal
/// length share their right edge, however much blank space a single cell has on its sides. Texts that stand elsewhere
/// follow the others of their column, heads keep what they have. A column in which no edge clearly agrees keeps all.
void alignColumns(Table &table);

} // namespace quorra::model
