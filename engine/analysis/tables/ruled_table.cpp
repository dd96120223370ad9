// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/ruled_table.h"

#include "base/disjoint_sets.h"
#include "tables/drawn_regions.h"
#include "tables/grid_columns.h"
#include "tables/lattice.h"
#include "tables/stacked_rows.h"
#include "tables/unruled_table.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace quorra::model {

namespace {

using ruledTables::thresholds;

bool meet(const Rule &horizontal, const Rule &vertical)
{
    return vertical.x1 >= horizontal.x1 - thresholds.maxJointGap &&
           vertical.x1 <= horizontal.x2 + thresholds.maxJointGap &&
           horizontal.y1 >= vertical.y1 - thresholds.maxJointGap &&
           horizontal.y1 <= vertical.y2 + thresholds.maxJointGap;
}

std::vector<Rulings> connectedRulings(const Rulings &all, std::size_t minAcross = thresholds.minRulesAcross)
{
    const std::size_t h = all.horizontal.size();
    const std::size_t v = all.vertical.size();
    if (h > thresholds.maxRules || v > thresholds.maxRules) {
        return {};
    }
    DisjointSets groups(h + v);
    for (std::size_t i = 0; i < h; ++i) {
        for (std::size_t j = 0; j < v; ++j) {
            if (meet(all.horizontal[i], all.vertical[j])) {
                groups.join(i, h + j);
            }
        }
    }
    std::vector<Rulings> byRoot(h + v);
    for (std::size_t i = 0; i < h; ++i) {
        byRoot[groups.find(i)].horizontal.push_back(all.horizontal[i]);
    }
    for (std::size_t j = 0; j < v; ++j) {
        byRoot[groups.find(h + j)].vertical.push_back(all.vertical[j]);
    }
    byRoot.erase(
        std::remove_if(
            byRoot.begin(), byRoot.end(),
            [minAcross](const Rulings &r) { return r.horizontal.size() < minAcross || r.vertical.empty(); }),
        byRoot.end());
    return byRoot;
}

void placeWords(TableWords &found, const WordRefs &words)
{
    found.words.resize(found.table.cells.size());
    for (const RawWord *word : words) {
        const Box body = bodyOf(*word);
        if (!found.table.box.contains(body.centreX(), body.centreY())) {
            continue;
        }
        for (std::size_t i = 0; i < found.table.cells.size(); ++i) {
            if (found.table.cells[i].box.contains(body.centreX(), body.centreY())) {
                found.words[i].push_back(word);
                break;
            }
        }
    }
}

// Whether most of the cells that run over the whole grid, or over several of its columns, have texts side by side.
bool leavesColumnsOpen(const TableWords &found)
{
    std::size_t wide = 0;
    std::size_t divided = 0;
    for (std::size_t i = 0; i < found.words.size(); ++i) {
        const Cell &cell = found.table.cells[i];
        if (found.words[i].empty() || (cell.columnSpan == 1 && found.table.columns() > 1)) {
            continue;
        }
        const std::vector<TextLine> lines = textLinesOf(found.words[i]);
        ++wide;
        divided +=
            std::any_of(lines.begin(), lines.end(), [](const TextLine &line) { return cellTexts(line).size() > 1; });
    }
    return divided >= thresholds.minDividedCells && 2 * divided >= wide;
}

// Whether several lines of a cell have wide gaps at the same places, and hardly any text is there.
bool holdsColumns(const WordRefs &words)
{
    const std::vector<TextLine> lines = textLinesOf(words);
    std::size_t divided = 0;
    for (const TextLine &line : lines) {
        divided += cellTexts(line).size() > 1 ? 1 : 0;
    }
    if (divided < thresholds.minDividedLines) {
        return false;
    }
    const std::vector<double> edges = findColumnEdges(lines, {});
    const auto crossing = std::count_if(lines.begin(), lines.end(), [&edges](const TextLine &line) {
        const std::vector<Segment> segments = segmentsOf(line, gridColumns::thresholds.minWeakGap);
        return std::any_of(segments.begin(), segments.end(), [&edges](const Segment &segment) {
            return std::any_of(edges.begin() + 1, edges.end() - 1, [&segment](double x) {
                return segment.box.left < x && x < segment.box.right;
            });
        });
    });
    return edges.size() > 2 &&
           static_cast<double>(crossing) <= gridColumns::thresholds.maxCrossing * static_cast<double>(lines.size());
}

// Whether much of the text is in a cell with columns: the lines are a frame around a table.
bool framesTable(const TableWords &found)
{
    std::size_t all = 0;
    for (const WordRefs &words : found.words) {
        all += words.size();
    }
    return std::any_of(found.words.begin(), found.words.end(), [all](const WordRefs &words) {
        return static_cast<double>(words.size()) >= thresholds.minTableInCell * static_cast<double>(all) &&
               holdsColumns(words);
    });
}

// Whether the texts between two lines down the grid, taken together, stand in several columns.
bool mergesColumns(const TableWords &found)
{
    std::vector<WordRefs> columns(static_cast<std::size_t>(found.table.columns()));
    for (std::size_t i = 0; i < found.words.size(); ++i) {
        const Cell &cell = found.table.cells[i];
        if (cell.columnSpan == 1) {
            WordRefs &column = columns[static_cast<std::size_t>(cell.column)];
            column.insert(column.end(), found.words[i].begin(), found.words[i].end());
        }
    }
    return std::any_of(columns.begin(), columns.end(), holdsColumns);
}

// Adds the tables that the text in a box makes together with the lines there, if they hold most of it. Returns whether
// they do.
bool addOpenTables(std::vector<TableWords> &tables, const Box &box, const Rulings &dividers, const WordRefs &words)
{
    WordRefs inside;
    std::copy_if(words.begin(), words.end(), std::back_inserter(inside), [&box](const RawWord *word) {
        const Box body = bodyOf(*word);
        return word->rotation == 0 && box.contains(body.centreX(), body.centreY());
    });
    if (inside.empty()) {
        return false;
    }
    const std::vector<TextLine> lines = textLinesOf(inside);
    std::vector<UnruledTable> found = tablesOfLines(lines, dividers);
    const auto isTaken = [&tables](const UnruledTable &table) {
        return std::any_of(tables.begin(), tables.end(), [&table](const TableWords &other) {
            return !intersected(other.table.box, table.found.table.box).isEmpty();
        });
    };
    std::size_t covered = 0;
    for (const UnruledTable &table : found) {
        for (std::size_t i = table.firstLine; i <= table.lastLine; ++i) {
            covered += lines[i].words.size();
        }
    }
    if (static_cast<double>(covered) < thresholds.minCovered * static_cast<double>(inside.size()) ||
        std::any_of(found.begin(), found.end(), isTaken)) {
        return false;
    }
    for (UnruledTable &table : found) {
        tables.push_back(std::move(table.found));
    }
    return true;
}

// Whether one cell holds most of the grid's text and area, in many lines: lines at the margins of the page, or around
// it, meet others.
bool swallowsPage(const TableWords &found)
{
    std::size_t all = 0;
    for (const WordRefs &words : found.words) {
        all += words.size();
    }
    const Box &box = found.table.box;
    for (std::size_t i = 0; i < found.words.size(); ++i) {
        const Box &cell = found.table.cells[i].box;
        if (static_cast<double>(found.words[i].size()) >= thresholds.minSwallowed * static_cast<double>(all) &&
            cell.width() * cell.height() >= thresholds.minSwallowed * box.width() * box.height() &&
            textLinesOf(found.words[i]).size() >= thresholds.minPageLines) {
            return true;
        }
    }
    return false;
}

bool isPageHigh(const Box &grid, const WordRefs &words)
{
    Box text;
    for (const RawWord *word : words) {
        text = united(text, word->box);
    }
    return grid.height() >= thresholds.minPageHeight * text.height();
}

// The rules that are short against the grid that all of them draw.
Rulings withoutPageRules(Rulings rules, const Box &grid)
{
    const auto remove = [](std::vector<Rule> &list, double length) {
        list.erase(
            std::remove_if(
                list.begin(), list.end(),
                [length](const Rule &rule) { return rule.length() >= thresholds.minPageRule * length; }),
            list.end());
    };
    remove(rules.horizontal, grid.width());
    remove(rules.vertical, grid.height());
    return rules;
}

bool isTable(const TableWords &found, double innerLines)
{
    const auto filled = std::count_if(found.words.begin(), found.words.end(), [](const auto &w) { return !w.empty(); });
    const auto cells = static_cast<double>(found.table.cells.size());
    return cells >= 2 && filled >= 2 && static_cast<double>(filled) >= thresholds.minFilledCells * cells &&
           innerLines >= thresholds.minInnerLines;
}

// Adds the tables that groups of touching rules draw.
void addGrids(std::vector<TableWords> &tables, const Rulings &rulings, const Rulings &dividers, const WordRefs &words)
{
    for (const Rulings &group : connectedRulings(rulings)) {
        const Lattice lattice(group);
        if (lattice.rows() < 1 || lattice.columns() < 1 || lattice.rows() * lattice.columns() < 2) {
            continue;
        }
        TableWords found;
        found.table = lattice.table();
        placeWords(found, words);
        const bool swallows = swallowsPage(found);
        const bool isOpen =
            leavesColumnsOpen(found) || mergesColumns(found) || holdsSeveralRows(found) || framesTable(found);
        if (isOpen && !(swallows && isPageHigh(found.table.box, words)) &&
            addOpenTables(tables, found.table.box, dividers, words)) {
            continue;
        }
        if (swallows) {
            addGrids(tables, withoutPageRules(group, found.table.box), dividers, words);
        } else if (lattice.columns() > 1 && isTable(found, lattice.innerLineShare())) {
            splitOpenSpans(found);
            splitAlignedLines(found);
            splitTextColumns(found);
            tables.push_back(std::move(found));
        } else if (!isOpen) {
            addOpenTables(tables, found.table.box, dividers, words);
        }
    }
}

} // namespace

std::vector<TableWords> findRuledTables(const Rulings &rulings, const Rulings &dividers, const WordRefs &words)
{
    std::vector<TableWords> tables;
    addGrids(tables, rulings, dividers, words);
    // A grid in a cell of another grid is part of that cell's text.
    const auto isInside = [&tables](const TableWords &inner) {
        return std::any_of(tables.begin(), tables.end(), [&inner](const TableWords &outer) {
            const Box common = intersected(inner.table.box, outer.table.box);
            return &inner != &outer &&
                   outer.table.box.width() * outer.table.box.height() >
                       inner.table.box.width() * inner.table.box.height() &&
                   common.width() * common.height() >
                       thresholds.minInside * inner.table.box.width() * inner.table.box.height();
        });
    };
    std::vector<TableWords> outermost;
    for (const TableWords &table : tables) {
        if (!isInside(table)) {
            outermost.push_back(table);
        }
    }
    return outermost;
}

void addTablesBetweenRules(
    std::vector<TableWords> &tables, const std::vector<Box> &taken, const Rulings &rulings, const Rulings &dividers,
    const WordRefs &words)
{
    std::vector<Box> regions = tableRegions(dividers, words);
    for (const Rulings &group : connectedRulings(rulings, 1)) {
        Box box;
        for (const auto *rules : {&group.horizontal, &group.vertical}) {
            for (const Rule &rule : *rules) {
                box = united(box, {rule.x1, rule.y1, rule.x2, rule.y2});
            }
        }
        regions.push_back(box);
    }
    for (const Box &box : regions) {
        const auto overlaps = [&box](const Box &other) { return !intersected(other, box).isEmpty(); };
        if (std::none_of(taken.begin(), taken.end(), overlaps) &&
            std::none_of(tables.begin(), tables.end(), [&](const TableWords &t) { return overlaps(t.table.box); })) {
            addOpenTables(tables, box, dividers, words);
        }
    }
}

} // namespace quorra::model
