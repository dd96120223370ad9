// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_runs.h"

#include <vector>

namespace quorra::office {

/// Lines of the table's cells, pieces of one line put together.
std::vector<model::Rule> gridLines(const model::Table &table);

/// Draws a table on a slide where it cannot stand as one: its lines and backgrounds, and the text of each column in one
/// frame; turned text in a box for each cell.
void writeSlideGrid(const Sink &sink, const model::Page &page, const model::Table &table);

} // namespace quorra::office
