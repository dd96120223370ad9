// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <vector>

// The layout of tables on a sheet. Spreadsheets add padding to cells and cut off what does not fit; therefore columns
// and rows are slightly larger than on the page. Pure functions on the document model; lengths in points.
namespace quorra::office {

/// Returns the widths of the columns of a sheet with these tables, one below the other.
std::vector<double> sheetColumns(const std::vector<const model::Table *> &tables);

/// Returns the heights of the table's rows, each high enough for its lines of text.
std::vector<double> sheetRows(const model::Table &table);

/// Returns the height of a row that contains one line of text.
double sheetLineHeight(const model::Line &line);

/// Returns whether the text of the cell has several lines.
bool wrapsInSheet(const model::Cell &cell);

/// Returns the vertical alignment of the cell on a sheet: "top", "middle" or "bottom".
QString sheetVerticalAlignment(const model::Cell &cell);

/// Returns the indent of each cell of the table against the other text of its column; 0 for most.
std::vector<double> sheetIndents(const model::Table &table);

} // namespace quorra::office
