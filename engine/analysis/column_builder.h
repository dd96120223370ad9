// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "columns/page_segmentation.h"
#include "figures/figures.h"
#include "tables/ruled_table.h"

#include <vector>

namespace quorra::model {

namespace columnBuilder {

struct Thresholds
{
    double maxOverlap = 3;     ///< points by which an obstacle may reach into the lines above and below it
    double maxIconHeight = 24; ///< points; higher figures beside a line are no sign before it
};

inline constexpr Thresholds thresholds;

} // namespace columnBuilder

/// Turns the words and obstacles of one column into blocks in reading order.
class ColumnBuilder
{
public:
    /// The index of an obstacle counts the tables first, then the placed figures. raw, rulings, figures and styles
    /// must outlive the builder.
    ColumnBuilder(
        const RawPage &raw, const Rulings &rulings, std::vector<TableWords> tables, const PageFigures &figures,
        StyleTable &styles);

    /// The paragraphs, tables and pictures of one column, in reading order. The items' obstacles must have the indexes
    /// described above.
    std::vector<Block> blocks(const RegionItems &items) const;

private:
    std::vector<Block> textBlocks(const std::vector<TextLine> &lines, const Box &column) const;
    std::vector<Block> obstacleBlocks(std::size_t index) const;

    const RawPage &m_raw;
    const Rulings &m_rulings;
    std::vector<TableWords> m_tables;
    const PageFigures &m_figures;
    StyleTable &m_styles;
};

} // namespace quorra::model
