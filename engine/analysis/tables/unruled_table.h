// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

#include <utility>
#include <vector>

namespace quorra::model {

/// A table found among rows of text: it takes the place of rows [firstLine, lastLine].
struct UnruledTable
{
    TableWords found;
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
};

/// Finds tables that only the alignment of their text shows, in the rows of one column. Horizontal lines of the page,
/// if it has any, tell which rows belong together and what a heading spans. Running text, lists, program listings and
/// tables of contents are left alone.
std::vector<UnruledTable> findUnruledTables(const std::vector<TextLine> &rows, const std::vector<Rule> &horizontal);

} // namespace quorra::model
