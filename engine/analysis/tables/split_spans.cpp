// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/grid_columns.h"
#include "tables/ruled_table.h"

#include <algorithm>

namespace quorra::model {

namespace {

using splitSpans::thresholds;

// The words of a cell by the columns under it; nothing if a text runs over several of them, or if no line has texts in
// two of them.
std::vector<WordRefs> wordsByColumn(const Cell &cell, const WordRefs &words, const std::vector<double> &edges)
{
    std::vector<WordRefs> parts(static_cast<std::size_t>(cell.columnSpan));
    bool divided = false;
    for (const TextLine &line : textLinesOf(words)) {
        const std::vector<Segment> texts = cellTexts(line);
        std::size_t last = parts.size();
        for (const Segment &text : texts) {
            const auto first = edges.begin() + cell.column + 1;
            const auto at = std::upper_bound(first, first + cell.columnSpan - 1, text.box.centreX());
            const auto column = static_cast<std::size_t>(at - first);
            if (text.box.left < *(at - 1) - thresholds.maxReach || text.box.right > *at + thresholds.maxReach ||
                column == last) {
                return {};
            }
            divided = divided || last != parts.size();
            last = column;
            parts[column].insert(parts[column].end(), text.words.begin(), text.words.end());
        }
    }
    return divided ? parts : std::vector<WordRefs>();
}

} // namespace

void splitOpenSpans(TableWords &found)
{
    const auto isWide = [&](std::size_t i) {
        return found.table.cells[i].columnSpan > 1 && found.table.cells[i].rowSpan == 1;
    };
    std::vector<std::vector<WordRefs>> parts(found.words.size());
    std::size_t divided = 0;
    bool filled = false; // whether the texts of a cell are as many as its columns
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (isWide(i) && !found.words[i].empty()) {
            parts[i] = wordsByColumn(found.table.cells[i], found.words[i], found.table.columnEdges);
            divided += parts[i].empty() ? 0 : 1;
            filled = filled || (!parts[i].empty() && std::none_of(parts[i].begin(), parts[i].end(), [](const auto &w) {
                         return w.empty();
                     }));
        }
    }
    if (divided < thresholds.minDividedCells && !filled) {
        return;
    }
    std::vector<Cell> cells;
    std::vector<WordRefs> words;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Cell &cell = found.table.cells[i];
        if (parts[i].empty()) {
            cells.push_back(cell);
            words.push_back(found.words[i]);
            continue;
        }
        for (int part = 0; part < cell.columnSpan; ++part) {
            const auto edge = found.table.columnEdges.begin() + cell.column + part;
            Cell piece = cell;
            piece.column += part;
            piece.columnSpan = 1;
            piece.box.left = *edge;
            piece.box.right = *(edge + 1);
            piece.left = part == 0 ? cell.left : Border{};
            piece.right = part + 1 == cell.columnSpan ? cell.right : Border{};
            cells.push_back(piece);
            words.push_back(parts[i][static_cast<std::size_t>(part)]);
        }
    }
    found.table.cells = std::move(cells);
    found.words = std::move(words);
}

} // namespace quorra::model
