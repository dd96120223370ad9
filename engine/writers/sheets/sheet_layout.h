// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <vector>

// How tables stand in the cells of a sheet: a sheet has its own paddings and cuts what does not fit, so its columns and
// rows are somewhat larger than the page's. Pure functions over the page model; lengths in points.
namespace quorra::office {

/// The widths of the columns that these tables, one below the other, share.
std::vector<double> sheetColumns(const std::vector<const model::Table *> &tables);

/// The heights of the table's rows, each high enough for its lines of text.
std::vector<double> sheetRows(const model::Table &table);

/// The height of a row that holds one line of text.
double sheetLineHeight(const model::Line &line);

/// Whether the cell's text stands on several lines.
bool wrapsInSheet(const model::Cell &cell);

/// Where the text stands between the cell's top and bottom: "top", "middle" or "bottom".
QString verticalPlace(const model::Cell &cell);

/// By how much the text of each of the table's cells is indented against the other text of its column, 0 for most.
std::vector<double> sheetIndents(const model::Table &table);

} // namespace quorra::office
