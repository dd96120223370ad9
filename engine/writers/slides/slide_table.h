// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_runs.h"

namespace quorra::office {

/// Returns whether the table can be written as a table: it is upright and not too large for presentation programs.
/// Other tables are drawn, see slide_grid.h.
bool canBeTable(const model::Table &table);

/// Writes the table into a frame at its position. Text that is higher than its row becomes smaller.
void writeSlideTable(const Sink &sink, const model::Table &table);

} // namespace quorra::office
