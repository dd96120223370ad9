// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// Text that stands inside a drawing: the labels of a chart.
struct DrawingLabels
{
    std::size_t picture = 0; ///< index into PagePictures::placed
    WordRefs words;
};

struct PagePictures
{
    std::vector<Picture> placed;      ///< among the text
    std::vector<Picture> backgrounds; ///< behind all of the text (a scan with its recognised text, a page's backdrop)
    std::vector<DrawingLabels> labels;
};

/// The raster images of a page, strips of one image put together, and its drawings with the words inside them.
PagePictures findPictures(const RawPage &raw, const std::vector<Box> &tables, const WordRefs &words);

/// A drawing's labels as text, one paragraph for all.
std::vector<Paragraph> labelParagraphs(const DrawingLabels &labels, StyleTable &styles);

} // namespace quorra::model
