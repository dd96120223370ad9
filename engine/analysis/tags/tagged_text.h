// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "document/tags.h"

#include <deque>
#include <vector>

namespace quorra::model {

/// A cell of a table as the tags describe it.
struct TaggedCell
{
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
    bool head = false;
};

/// A table as the tags describe it: a grid in which no two cells overlap. Not every place has a cell.
struct TaggedTable
{
    int rows = 0;
    int columns = 0;
    std::vector<TaggedCell> cells; ///< row by row
};

/// What a piece of content is part of.
struct TaggedContent
{
    const TaggedParagraph *paragraph = nullptr; ///< null in figures
    bool label = false;                         ///< in the mark of a list item
    bool artifact = false;
};

/// The structure tree by paragraphs and tables.
struct TaggedText
{
    std::deque<TaggedParagraph> paragraphs; ///< in reading order; TaggedContent points to them
    std::vector<TaggedTable> tables;        ///< in reading order; a table inside a cell is part of the cell's text
    std::vector<TaggedContent> contents;    ///< as in TagTree::contents
};

/// Sorts the tree by paragraphs and tables.
TaggedText taggedText(const TagTree &tree);

} // namespace quorra::model
