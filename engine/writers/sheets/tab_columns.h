// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

// Lines with tabs, whose parts become cells. Pure functions on the document model; lengths in points.
namespace quorra::office {

/// Returns the parts of a single line between its tabs, without leaders, each as a paragraph with its box; nothing for
/// a paragraph of several lines or without tabs. The mark of a list item belongs to the first part.
std::vector<model::Paragraph> tabParts(const model::Paragraph &paragraph);

/// The columns that a part of a line covers.
struct PartColumns
{
    int column = 0;
    int span = 1;
};

/// Returns the columns for the parts of a line: each begins as near as possible to its place on the page, `left` being
/// the x coordinate of the first column, and is as wide as its text. Columns are added where there are too few.
std::vector<PartColumns>
columnsForParts(const std::vector<model::Paragraph> &parts, double left, std::vector<double> &columnWidths);

/// Returns the widths of columns that begin where the parts of these lines begin, for text of this width at `left`.
std::vector<double>
columnsFromParts(const std::vector<std::vector<model::Paragraph>> &lines, double left, double textWidth);

} // namespace quorra::office
