// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_runs.h"

#include <vector>

namespace quorra::office {

/// Returns the borders of the table's cells; collinear borders of the same width and colour are joined.
std::vector<model::Rule> gridLines(const model::Table &table);

/// Draws a table that cannot be written as a table: its borders and backgrounds, the text of each column in a frame,
/// and rotated text in a frame for each cell.
void writeSlideGrid(const Sink &sink, const model::Page &page, const model::Table &table);

} // namespace quorra::office
