// SPDX-License-Identifier: GPL-3.0-or-later
#include "column_builder.h"

#include "paragraphs/paragraphs.h"
#include "tables/table_content.h"
#include "tables/tagged_tables.h"
#include "tables/unruled_table.h"
#include "tags/tag_use.h"

#include <algorithm>
#include <iterator>

namespace quorra::model {

namespace {

using columnBuilder::thresholds;

// Whether a table or picture lies between two text lines, so that they cannot be one paragraph.
bool separates(const Box &obstacle, const TextLine &upper, const TextLine &lower)
{
    return obstacle.top > upper.box.bottom - thresholds.maxOverlap &&
           obstacle.bottom < lower.box.top + thresholds.maxOverlap;
}

// Whether a small figure precedes a line of text, as an icon does.
bool standsBefore(const Box &figure, const Box &line)
{
    return figure.right <= line.left + thresholds.maxOverlap && figure.centreY() > line.top &&
           figure.centreY() < line.bottom && figure.height() < thresholds.maxIconHeight;
}

void insertByPlace(std::vector<Block> &blocks, std::vector<Block> more, const Box &place)
{
    const auto at = std::find_if(blocks.begin(), blocks.end(), [&place](const Block &block) {
        return block.box().top > place.top ||
               (block.paragraph() && standsBefore(place, block.paragraph()->lines.front().box));
    });
    blocks.insert(at, std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

ColumnBuilder::ColumnBuilder(
    const RawPage &raw, const Rulings &rulings, std::vector<TableWords> tables, const PageFigures &figures,
    StyleTable &styles)
    : m_raw(raw)
    , m_rulings(rulings)
    , m_tables(std::move(tables))
    , m_figures(figures)
    , m_styles(styles)
{}

std::vector<Block> ColumnBuilder::blocks(const RegionItems &items) const
{
    std::vector<TextLine> lines = textLinesOf(items.words);
    Box column;
    for (const TextLine &line : lines) {
        column = united(column, line.box);
    }
    std::vector<Block> all;
    std::vector<TextLine> group;
    const auto finish = [&] {
        for (Block &block : textBlocks(group, column)) {
            all.push_back(std::move(block));
        }
        group.clear();
    };
    for (TextLine &line : lines) {
        const bool separated =
            !group.empty() && std::any_of(items.obstacles.begin(), items.obstacles.end(), [&](const auto &obstacle) {
                return separates(obstacle.first, group.back(), line) || standsBefore(obstacle.first, line.box);
            });
        if (separated) {
            finish();
        }
        group.push_back(std::move(line));
    }
    finish();
    auto obstacles = items.obstacles;
    std::sort(
        obstacles.begin(), obstacles.end(), [](const auto &a, const auto &b) { return a.first.top < b.first.top; });
    for (const auto &[box, index] : obstacles) {
        insertByPlace(all, obstacleBlocks(index), box);
    }
    return all;
}

std::vector<Block> ColumnBuilder::textBlocks(const std::vector<TextLine> &lines, const Box &column) const
{
    std::vector<Block> blocks;
    const auto addText = [&](std::size_t from, std::size_t to) {
        if (from < to) {
            const std::vector<TextLine> text(
                lines.begin() + static_cast<std::ptrdiff_t>(from), lines.begin() + static_cast<std::ptrdiff_t>(to));
            for (Paragraph &paragraph : paragraphsOf(inReadingOrder(text), column, m_styles)) {
                blocks.push_back({std::move(paragraph), 0});
            }
        }
    };
    std::size_t next = 0;
    for (UnruledTable &table : findUnruledTables(lines, m_rulings)) {
        if (isDenied(table.found)) {
            continue;
        }
        addText(next, table.firstLine);
        blocks.push_back({finishedTable(std::move(table.found), m_raw.fills, m_styles), 0});
        next = table.lastLine + 1;
    }
    addText(next, lines.size());
    return blocks;
}

std::vector<Block> ColumnBuilder::obstacleBlocks(std::size_t index) const
{
    if (index >= m_tables.size()) {
        return figureBlocks(m_figures.placed[index - m_tables.size()], m_styles);
    }
    std::vector<Block> blocks;
    blocks.push_back({finishedTable(m_tables[index], m_raw.fills, m_styles), 0});
    return blocks;
}

} // namespace quorra::model
