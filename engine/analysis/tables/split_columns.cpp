// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number.h"
#include "tables/grid_columns.h"
#include "tables/ruled_table.h"

#include <algorithm>

namespace quorra::model {

namespace {

using splitColumns::thresholds;

// The edges at which the texts of a drawn column divide; none for most columns.
std::vector<double> innerEdges(const TableWords &found, int column)
{
    std::vector<TextLine> lines;
    for (std::size_t i = 0; i < found.words.size(); ++i) {
        const Cell &cell = found.table.cells[i];
        if (cell.column == column && cell.columnSpan == 1) {
            const std::vector<TextLine> more = textLinesOf(found.words[i]);
            lines.insert(lines.end(), more.begin(), more.end());
        }
    }
    std::size_t divided = 0;
    std::size_t texts = 0;
    std::size_t numeric = 0;
    for (const TextLine &line : lines) {
        const std::vector<Segment> segments = cellTexts(line);
        if (segments.size() < 2) {
            continue;
        }
        ++divided;
        for (const Segment &segment : segments) {
            ++texts;
            numeric += looksNumeric(joinedText(segment.words)) ? 1 : 0;
        }
    }
    if (divided < thresholds.minLines ||
        static_cast<double>(divided) < thresholds.minShare * static_cast<double>(lines.size()) ||
        static_cast<double>(numeric) < thresholds.minNumeric * static_cast<double>(texts)) {
        return {};
    }
    const std::vector<double> edges = findColumnEdges(lines, {});
    return {edges.begin() + 1, edges.end() - 1};
}

// The words of a cell between the edges; nothing if a word crosses one of them.
std::vector<WordRefs> dividedWords(const WordRefs &words, const std::vector<double> &edges)
{
    std::vector<WordRefs> parts(edges.size() + 1);
    for (const RawWord *word : words) {
        const Box body = bodyOf(*word);
        const auto at = std::upper_bound(edges.begin(), edges.end(), body.left);
        if (at != edges.end() && body.right > *at) {
            return {};
        }
        parts[static_cast<std::size_t>(at - edges.begin())].push_back(word);
    }
    const auto filled = std::count_if(parts.begin(), parts.end(), [](const WordRefs &part) { return !part.empty(); });
    return filled > 1 ? parts : std::vector<WordRefs>();
}

void splitAt(TableWords &found, int column, const std::vector<double> &edges)
{
    const int added = static_cast<int>(edges.size());
    std::vector<Cell> cells;
    std::vector<WordRefs> words;
    for (std::size_t i = 0; i < found.table.cells.size(); ++i) {
        Cell cell = found.table.cells[i];
        const bool isWithin = cell.column == column && cell.columnSpan == 1;
        const std::vector<WordRefs> parts = isWithin ? dividedWords(found.words[i], edges) : std::vector<WordRefs>();
        if (parts.empty()) {
            if (cell.column > column) {
                cell.column += added;
            } else if (cell.column + cell.columnSpan > column) {
                cell.columnSpan += added;
            }
            cells.push_back(cell);
            words.push_back(found.words[i]);
            continue;
        }
        for (int part = 0; part <= added; ++part) {
            Cell piece = cell;
            piece.column += part;
            piece.box.left = part == 0 ? cell.box.left : edges[static_cast<std::size_t>(part) - 1];
            piece.box.right = part == added ? cell.box.right : edges[static_cast<std::size_t>(part)];
            piece.left = part == 0 ? cell.left : Border{};
            piece.right = part == added ? cell.right : Border{};
            cells.push_back(piece);
            words.push_back(parts[static_cast<std::size_t>(part)]);
        }
    }
    found.table.columnEdges.insert(found.table.columnEdges.begin() + column + 1, edges.begin(), edges.end());
    found.table.cells = std::move(cells);
    found.words = std::move(words);
}

} // namespace

void splitTextColumns(TableWords &found)
{
    for (int column = found.table.columns() - 1; column >= 0; --column) {
        std::vector<double> edges = innerEdges(found, column);
        const double left = found.table.columnEdges[static_cast<std::size_t>(column)];
        const double right = found.table.columnEdges[static_cast<std::size_t>(column) + 1];
        edges.erase(
            std::remove_if(edges.begin(), edges.end(), [&](double x) { return x <= left || x >= right; }), edges.end());
        if (!edges.empty()) {
            splitAt(found, column, edges);
        }
    }
}

} // namespace quorra::model
