// SPDX-License-Identifier: GPL-3.0-or-later
#include "scan_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace quorra {

namespace {

struct Thresholds
{
    int minContrast = 40;       ///< gray levels between the paper and what is printed on it
    double cellSize = 6;        ///< points; the resolution of the search
    double minInk = 0.2;        ///< share of a cell's pixels that differ from the paper
    double wordMargin = 3;      ///< points around a word; recognised boxes are often too small
    double minSide = 30;        ///< points; smaller marks are letters that were not recognised, and dirt
    double minFilled = 0.3;     ///< share of a picture's cells with ink; rules and frames have less
    double maxTextArea = 0.3;   ///< share of a picture's area that words may cover; more is text on colour
    double maxEdgeShare = 0.95; ///< share of the page's width and height; larger ones are shadows around the paper
};
constexpr Thresholds thresholds;

struct Grid
{
    int columns;
    int rows;
    std::vector<char> inked;
};

std::size_t indexOf(const Grid &grid, int row, int column)
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.columns) + static_cast<std::size_t>(column);
}

/// The most frequent gray level.
int paperLevel(const Raster &page)
{
    std::array<int, 256> counts{};
    for (int y = 0; y < page.rows; ++y) {
        const std::uint8_t *row = page.row(y);
        for (int x = 0; x < page.width; ++x) {
            ++counts.at(row[x]);
        }
    }
    return static_cast<int>(std::max_element(counts.begin(), counts.end()) - counts.begin());
}

Grid inkOf(const Raster &page, const std::vector<Box> &words, double dot)
{
    const int size = std::max(1, static_cast<int>(std::lround(thresholds.cellSize * dot)));
    Grid grid{page.width / size, page.rows / size, {}};
    grid.inked.assign(static_cast<std::size_t>(grid.columns) * static_cast<std::size_t>(grid.rows), 0);
    const int paper = paperLevel(page);
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            int ink = 0;
            for (int y = row * size; y < (row + 1) * size; ++y) {
                for (int x = column * size; x < (column + 1) * size; ++x) {
                    ink += std::abs(page.row(y)[x] - paper) >= thresholds.minContrast ? 1 : 0;
                }
            }
            grid.inked[indexOf(grid, row, column)] = ink >= thresholds.minInk * size * size;
        }
    }
    const double margin = thresholds.wordMargin * dot;
    for (const Box &word : words) {
        const Box box = expanded(word, margin);
        const int left = std::max(0, static_cast<int>(box.left / size));
        const int right = std::min(grid.columns - 1, static_cast<int>(box.right / size));
        const int bottom = std::min(grid.rows - 1, static_cast<int>(box.bottom / size));
        for (int row = std::max(0, static_cast<int>(box.top / size)); row <= bottom; ++row) {
            for (int column = left; column <= right; ++column) {
                grid.inked[indexOf(grid, row, column)] = 0;
            }
        }
    }
    return grid;
}

struct Region
{
    int left;
    int top;
    int right;
    int bottom;
    int cells;
};

/// Takes a connected region out of the grid.
Region takeRegion(Grid &grid, int column, int row)
{
    Region region{column, row, column, row, 0};
    std::vector<std::pair<int, int>> open{{column, row}};
    grid.inked[indexOf(grid, row, column)] = 0;
    while (!open.empty()) {
        const auto [x, y] = open.back();
        open.pop_back();
        ++region.cells;
        region = {
            std::min(region.left, x), std::min(region.top, y), std::max(region.right, x), std::max(region.bottom, y),
            region.cells};
        for (int nextY = std::max(0, y - 1); nextY <= std::min(grid.rows - 1, y + 1); ++nextY) {
            for (int nextX = std::max(0, x - 1); nextX <= std::min(grid.columns - 1, x + 1); ++nextX) {
                char &inked = grid.inked[indexOf(grid, nextY, nextX)];
                if (inked) {
                    inked = 0;
                    open.emplace_back(nextX, nextY);
                }
            }
        }
    }
    return region;
}

bool isPicture(const Region &region, const Grid &grid)
{
    const int width = region.right - region.left + 1;
    const int height = region.bottom - region.top + 1;
    const double minCells = thresholds.minSide / thresholds.cellSize;
    return width >= minCells && height >= minCells && region.cells >= thresholds.minFilled * width * height &&
           (width < thresholds.maxEdgeShare * grid.columns || height < thresholds.maxEdgeShare * grid.rows);
}

} // namespace

std::vector<Box> findScanPictures(const Raster &page, const std::vector<Box> &words, double dot)
{
    Grid grid = inkOf(page, words, dot);
    const double size = std::max(1.0, std::round(thresholds.cellSize * dot));
    std::vector<Box> pictures;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            if (!grid.inked[indexOf(grid, row, column)]) {
                continue;
            }
            const Region region = takeRegion(grid, column, row);
            if (!isPicture(region, grid)) {
                continue;
            }
            const Box box{region.left * size, region.top * size, (region.right + 1) * size, (region.bottom + 1) * size};
            double text = 0;
            for (const Box &word : words) {
                const Box both = intersected(word, box);
                text += both.area();
            }
            if (text <= thresholds.maxTextArea * box.area()) {
                pictures.push_back(box);
            }
        }
    }
    return pictures;
}

} // namespace quorra
