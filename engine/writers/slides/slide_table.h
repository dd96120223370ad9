// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_runs.h"

namespace quorra::office {

/// Whether the table can stand on the slide as a table: upright, not larger than a slide program handles well, and
/// with room below it for what its rows must grow. Otherwise it is to be drawn, see slide_grid.h.
bool fitsAsTable(const model::Page &page, const model::Table &table);

/// Writes the table in a frame of its own at its place.
void writeSlideTable(const Sink &sink, const model::Table &table);

} // namespace quorra::office
