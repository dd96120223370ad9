// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

// Tables as sheets need them. Pure functions on the document model.
namespace quorra::office {

/// Returns the table for a sheet on which the columns run from right to left: the column at the right edge is the
/// first one.
model::Table mirroredTable(model::Table table);

/// Returns whether the rows of the second table can be appended to the first: they have the same columns.
bool continuesTable(const model::Table &table, const model::Table &continuation);

/// Appends the rows of a table that continues it on the next page, without the head rows that it repeats. The
/// rest of a row that the page break divides is added to the last row. Both are upright.
void appendTable(model::Table &table, const model::Table &continuation);

/// Turns those line ends in cells into line breaks that the text does not owe to the width of its column: where the
/// next word would have fitted on the line, and where a line is a number.
void keepLineEnds(model::Table &table);

} // namespace quorra::office
