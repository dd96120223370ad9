// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "columns/page_segmentation.h"
#include "figures/figures.h"
#include "tables/ruled_table.h"

#include <vector>

namespace quorra::model {

/// Turns the words and obstacles of one column into blocks in reading order.
class ColumnBuilder
{
public:
    /// The obstacles of the columns count the tables first, then the placed pictures. raw, rulings,
    /// pictures and styles must outlive it.
    ColumnBuilder(
        const RawPage &raw, const Rulings &rulings, std::vector<TableWords> tables, const PagePictures &pictures,
        StyleTable &styles);

    std::vector<Block> blocks(const RegionItems &items) const;

private:
    std::vector<Block> textBlocks(const std::vector<TextLine> &rows, const Box &column) const;
    std::vector<Block> obstacleBlocks(std::size_t index) const;

    const RawPage &m_raw;
    const Rulings &m_rulings;
    std::vector<TableWords> m_tables;
    const PagePictures &m_pictures;
    StyleTable &m_styles;
};

} // namespace quorra::model
