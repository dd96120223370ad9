// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_runs.h"

namespace quorra::office {

/// Returns whether the table can be written as a table: it is upright, not too large for presentation programs, and
/// there is room below it for the height that its rows gain. Other tables are drawn, see slide_grid.h.
bool fitsAsTable(const model::Page &page, const model::Table &table);

/// Writes the table into a frame at its position.
void writeSlideTable(const Sink &sink, const model::Table &table);

} // namespace quorra::office
