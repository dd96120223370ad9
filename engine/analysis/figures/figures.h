// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// A figure whose labels are still words.
struct FoundFigure
{
    Box box;
    FigureKind kind = FigureKind::Image;
    WordRefs words; ///< inside a drawing: the labels of a chart
};

struct PageFigures
{
    std::vector<FoundFigure> placed;      ///< among the text
    std::vector<FoundFigure> backgrounds; ///< behind all of the text (a scan with its recognised text, a backdrop)
};

/// The raster images of a page, strips of one image put together, and its drawings with the words inside them.
PageFigures findFigures(const RawPage &raw, const std::vector<Box> &tables, const WordRefs &words);

/// The blocks of a figure: itself, with what its picture shows of its words as its labels, and a paragraph of the words
/// where they reach over its edge so far that the picture cuts them off.
std::vector<Block> figureBlocks(const FoundFigure &found, StyleTable &styles);

/// Sets for each figure of the page whether it lies behind text rather than among it.
void findFiguresBehindText(Page &page);

/// Enters the figures of the page into the document's list and gives them their ids. The page stands as shown.
void registerFigures(Page &page, Document &document);

} // namespace quorra::model
