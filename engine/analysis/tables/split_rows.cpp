// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/ruled_table.h"

#include "base/number.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using splitRows::thresholds;

struct BandCell
{
    std::size_t index; // into the table's cells
    std::vector<TextLine> lines;
};

// The cells with text in one row of the grid, its band.
std::vector<BandCell> bandCells(const TableWords &found, int row)
{
    std::vector<BandCell> band;
    for (std::size_t i = 0; i < found.table.cells.size(); ++i) {
        if (found.table.cells[i].row == row && found.table.cells[i].rowSpan == 1 && !found.words[i].empty()) {
            band.push_back({i, textLinesOf(found.words[i])});
        }
    }
    return band;
}

bool spansInto(const TableWords &found, int row)
{
    return std::any_of(found.table.cells.begin(), found.table.cells.end(), [row](const Cell &cell) {
        return cell.rowSpan > 1 && cell.row <= row && cell.row + cell.rowSpan > row;
    });
}

// The baselines that the lines of the band's cells share, if the band really holds several rows: most places hold a
// line, at least half of the lines are numbers, and hardly any cell is out of step. Otherwise none.
std::vector<double> sharedBaselines(const std::vector<BandCell> &band)
{
    std::size_t most = 0;
    for (const BandCell &cell : band) {
        most = std::max(most, cell.lines.size());
    }
    if (band.size() < thresholds.minCells || most < thresholds.minLines) {
        return {};
    }
    std::vector<double> values;
    std::size_t lines = 0;
    std::size_t numeric = 0;
    for (const BandCell &cell : band) {
        for (const TextLine &line : cell.lines) {
            values.push_back(line.baseline);
            ++lines;
            numeric += looksNumeric(joinedText(line.words)) ? 1 : 0;
        }
    }
    const std::vector<double> baselines = clusteredPositions(values, thresholds.sameBaseline);
    const double filled = static_cast<double>(lines) / static_cast<double>(baselines.size() * band.size());
    const bool plausible =
        baselines.size() <= most + thresholds.maxExtraLines && filled >= thresholds.minFilled && 2 * numeric >= lines;
    return plausible ? baselines : std::vector<double>();
}

void splitBand(TableWords &found, int row, const std::vector<BandCell> &band, const std::vector<double> &baselines)
{
    Table &table = found.table;
    const int added = static_cast<int>(baselines.size()) - 1;
    std::vector<double> edges(table.rowEdges.begin(), table.rowEdges.begin() + row + 1);
    const double size = band.front().lines.front().size;
    for (std::size_t i = 1; i < baselines.size(); ++i) {
        const double above = baselines[i - 1] + thresholds.minDescent * size;
        edges.push_back(
            std::max(above, (baselines[i - 1] + baselines[i] - textLines::thresholds.capHeight * size) / 2));
    }
    edges.insert(edges.end(), table.rowEdges.begin() + row + 1, table.rowEdges.end());
    std::vector<Cell> cells;
    std::vector<WordRefs> words;
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
        Cell cell = table.cells[i];
        if (cell.row != row) {
            cell.row += cell.row > row ? added : 0;
            cells.push_back(cell);
            words.push_back(found.words[i]);
            continue;
        }
        for (int part = 0; part <= added; ++part) {
            Cell piece = cell;
            piece.row = row + part;
            const auto firstEdge = static_cast<std::size_t>(piece.row);
            piece.box.top = edges[firstEdge];
            piece.box.bottom = edges[firstEdge + 1];
            piece.top = part == 0 ? cell.top : Border{};
            piece.bottom = part == added ? cell.bottom : Border{};
            WordRefs inside;
            std::copy_if(
                found.words[i].begin(), found.words[i].end(), std::back_inserter(inside), [&piece](const RawWord *w) {
                    const double y = bodyOf(*w).centreY();
                    return y >= piece.box.top && y < piece.box.bottom;
                });
            cells.push_back(piece);
            words.push_back(inside);
        }
    }
    table.rowEdges = edges;
    table.cells = cells;
    found.words = words;
}

} // namespace

void splitAlignedLines(TableWords &found)
{
    for (int row = found.table.rows() - 1; row >= 0; --row) {
        if (spansInto(found, row)) {
            continue;
        }
        const std::vector<BandCell> band = bandCells(found, row);
        const std::vector<double> baselines = sharedBaselines(band);
        if (!baselines.empty()) {
            splitBand(found, row, band, baselines);
        }
    }
    std::vector<std::size_t> order(found.table.cells.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::stable_sort(order.begin(), order.end(), [&found](std::size_t a, std::size_t b) {
        const Cell &x = found.table.cells[a];
        const Cell &y = found.table.cells[b];
        return x.row != y.row ? x.row < y.row : x.column < y.column;
    });
    std::vector<Cell> cells;
    std::vector<WordRefs> words;
    for (const std::size_t i : order) {
        cells.push_back(found.table.cells[i]);
        words.push_back(std::move(found.words[i]));
    }
    found.table.cells = std::move(cells);
    found.words = std::move(words);
}

} // namespace quorra::model
