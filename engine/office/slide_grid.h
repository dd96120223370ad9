// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/office/odf_frames.h"

namespace quorra::office {

/// True for a table of so many cells that a slide program would take seconds to lay it out.
bool isTooLargeForSlide(const model::Table &table);

/// Lines of the table's cells, pieces of one line put together.
std::vector<model::Rule> gridLines(const model::Table &table);

/// Draws a large table on a slide: its lines and backgrounds, and the text of each column in one frame.
void writeSlideGrid(const Sink &sink, const model::Table &table, double pageWidth);

} // namespace quorra::office
