// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <vector>

// The layout of tables on a sheet. Spreadsheets add padding to cells and cut off what does not fit; therefore columns
// and rows are slightly larger than on the page. Pure functions on the document model; lengths in points.
namespace quorra::office {

/// What a cell needs beyond the width that its text has on the page.
struct CellReserves
{
    double sidePadding = 7; ///< points; on the left and right of the text together
    double font = 1.08;     ///< factor; by which another font may be wider
};
inline constexpr CellReserves cellReserves;

/// Returns the widths of the columns of a sheet with these tables, one below the other. The columns are as wide as
/// those of the largest table; in the others, text wraps more often than on the page, but no word or number is cut off.
std::vector<double> sheetColumns(const std::vector<const model::Table *> &tables);

/// Returns the heights of the table's rows, each high enough for its lines of text in columns of these widths; in those
/// of the page without any.
std::vector<double> sheetRows(const model::Table &table, const std::vector<double> &columnWidths = {});

/// Returns the columns of a sheet with these tables and with text that is as wide as on the page: those of the tables,
/// and one more beside them if they are narrower than the text.
std::vector<double> withTextColumn(std::vector<double> tableColumns, double textWidth);

/// Returns the heights of the rows for text that wraps at this width. Text that is higher than a row can be extends
/// over several rows.
std::vector<double> textRows(const model::Paragraph &paragraph, double width);

/// Returns the indent of a paragraph that stands in the first column.
double textIndent(const model::Paragraph &paragraph);

/// Returns the heights of the rows for a picture of this height.
std::vector<double> pictureRows(double height);

/// Returns whether the text of the cell has several lines, in columns of these widths or on the page.
bool wrapsInSheet(const model::Cell &cell, const std::vector<double> &columnWidths = {});

/// Returns the vertical alignment of the cell on a sheet: "top", "middle" or "bottom".
QString sheetVerticalAlignment(const model::Cell &cell);

/// Returns the indent of each cell of the table against the other text of its column; 0 for most.
std::vector<double> sheetIndents(const model::Table &table);

} // namespace quorra::office
