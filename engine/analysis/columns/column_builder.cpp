// SPDX-License-Identifier: GPL-3.0-or-later
#include "columns/column_builder.h"

#include "paragraphs/paragraphs.h"
#include "tables/table_content.h"
#include "tables/unruled_table.h"

#include <algorithm>
#include <iterator>

namespace quorra::model {

namespace {

// Whether a table or picture lies between two rows, so that no paragraph runs through it.
bool separates(const Box &obstacle, const TextLine &upper, const TextLine &lower)
{
    constexpr double overlap = 3;
    return obstacle.top > upper.box.bottom - overlap && obstacle.bottom < lower.box.top + overlap;
}

void insertByPlace(std::vector<Block> &blocks, std::vector<Block> more, const Box &place)
{
    const auto at = std::find_if(
        blocks.begin(), blocks.end(), [&place](const Block &block) { return block.box().top > place.top; });
    blocks.insert(at, std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

ColumnBuilder::ColumnBuilder(
    const RawPage &raw, const Rulings &rulings, std::vector<TableWords> tables, const PagePictures &pictures,
    StyleTable &styles)
    : m_raw(raw)
    , m_rulings(rulings)
    , m_tables(std::move(tables))
    , m_pictures(pictures)
    , m_styles(styles)
{}

std::vector<Block> ColumnBuilder::blocks(const RegionItems &items) const
{
    std::vector<TextLine> rows = textLinesOf(items.words);
    Box column;
    for (const TextLine &row : rows) {
        column = united(column, row.box);
    }
    std::vector<Block> all;
    std::vector<TextLine> stretch;
    const auto finish = [&] {
        for (Block &block : textBlocks(stretch, column)) {
            all.push_back(std::move(block));
        }
        stretch.clear();
    };
    for (TextLine &row : rows) {
        const bool cut =
            !stretch.empty() && std::any_of(items.obstacles.begin(), items.obstacles.end(), [&](const auto &obstacle) {
                return separates(obstacle.first, stretch.back(), row);
            });
        if (cut) {
            finish();
        }
        stretch.push_back(std::move(row));
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

std::vector<Block> ColumnBuilder::textBlocks(const std::vector<TextLine> &rows, const Box &column) const
{
    std::vector<Block> blocks;
    const auto addText = [&](std::size_t from, std::size_t to) {
        if (from < to) {
            const std::vector<TextLine> text(
                rows.begin() + static_cast<std::ptrdiff_t>(from), rows.begin() + static_cast<std::ptrdiff_t>(to));
            for (Paragraph &paragraph : paragraphsOf(text, column, m_styles)) {
                blocks.push_back({std::move(paragraph), 0});
            }
        }
    };
    std::size_t next = 0;
    for (UnruledTable &table : findUnruledTables(rows, m_rulings.horizontal)) {
        addText(next, table.firstLine);
        blocks.push_back({finishedTable(std::move(table.found), m_raw.fills, m_styles), 0});
        next = table.lastLine + 1;
    }
    addText(next, rows.size());
    return blocks;
}

std::vector<Block> ColumnBuilder::obstacleBlocks(std::size_t index) const
{
    std::vector<Block> blocks;
    if (index < m_tables.size()) {
        blocks.push_back({finishedTable(m_tables[index], m_raw.fills, m_styles), 0});
        return blocks;
    }
    const std::size_t number = index - m_tables.size();
    blocks.push_back({m_pictures.placed[number], 0});
    for (const DrawingLabels &labels : m_pictures.labels) {
        if (labels.picture == number) {
            for (Paragraph &paragraph : labelParagraphs(labels, m_styles)) {
                blocks.push_back({std::move(paragraph), 0});
            }
        }
    }
    return blocks;
}

} // namespace quorra::model
