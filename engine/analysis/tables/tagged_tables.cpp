// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/tagged_tables.h"

#include "tables/ruled_table.h"
#include "tables/rulings.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace quorra::model {

namespace {

using taggedTables::thresholds;

/// Where the texts of a row or column are, across its direction.
struct Extent
{
    double from = 0;
    double to = 0;
    bool isKnown = false;

    void add(double a, double b)
    {
        from = isKnown ? std::min(from, a) : a;
        to = isKnown ? std::max(to, b) : b;
        isKnown = true;
    }
};

/// The part of a tagged table that is on the page.
struct Part
{
    std::vector<TaggedCell> cells; ///< rows count from the first one on the page
    std::vector<WordRefs> words;   ///< of each cell
    int rows = 0;
    int columns = 0;
};

/// Distances and positions of lines are those of their middle.
struct Line
{
    double at = 0;
    double from = 0;
    double to = 0;
    Border border;
};

std::vector<Line> linesOf(const std::vector<Rule> &rules, bool horizontal)
{
    std::vector<Line> lines;
    if (rules.size() > ruledTables::thresholds.maxRules) {
        return lines;
    }
    lines.reserve(rules.size());
    for (const Rule &rule : rules) {
        lines.push_back(
            horizontal ? Line{rule.y1, rule.x1, rule.x2, {rule.width, rule.colour}}
                       : Line{rule.x1, rule.y1, rule.y2, {rule.width, rule.colour}});
    }
    return lines;
}

Part partOf(const TaggedTable &table, const std::map<int, WordRefs> &wordsOfCells)
{
    Part part;
    int first = table.rows;
    int last = -1;
    for (const auto &[cell, words] : wordsOfCells) {
        first = std::min(first, table.cells[static_cast<std::size_t>(cell)].row);
        last = std::max(last, table.cells[static_cast<std::size_t>(cell)].row);
    }
    part.rows = last - first + 1;
    part.columns = table.columns;
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
        TaggedCell cell = table.cells[i];
        const int end = std::min(cell.row + cell.rowSpan, last + 1);
        cell.row = std::max(cell.row, first);
        cell.rowSpan = end - cell.row;
        if (cell.rowSpan < 1) {
            continue;
        }
        cell.row -= first;
        const auto words = wordsOfCells.find(static_cast<int>(i));
        part.cells.push_back(cell);
        part.words.push_back(words == wordsOfCells.end() ? WordRefs() : words->second);
    }
    return part;
}

/// In tables of right-to-left text the first column is on the right.
bool runsLeftwards(const Part &part)
{
    std::map<int, std::pair<int, double>> lastInRow; // column and left edge of a row's cell before
    int leftwards = 0;
    for (std::size_t i = 0; i < part.cells.size(); ++i) {
        if (part.words[i].empty()) {
            continue;
        }
        const double x = part.words[i].front()->box.left;
        const auto [before, isNew] = lastInRow.emplace(part.cells[i].row, std::pair(part.cells[i].column, x));
        if (!isNew) {
            leftwards += x < before->second.second ? 1 : -1;
            before->second = {part.cells[i].column, x};
        }
    }
    return leftwards > 0;
}

/// The edges between and around the extents; nothing where these overlap. Lines between them are the edges.
std::optional<std::vector<double>>
edgesOf(std::vector<Extent> extents, const std::vector<Line> &lines, const Extent &along)
{
    // What is empty lies between its neighbours.
    double before = 0;
    for (std::size_t i = 0; i < extents.size(); ++i) {
        if (extents[i].isKnown) {
            before = extents[i].to;
            continue;
        }
        const auto next = std::find_if(
            extents.begin() + static_cast<std::ptrdiff_t>(i), extents.end(), [](const Extent &e) { return e.isKnown; });
        if (i == 0 || next == extents.end()) {
            const bool atStart = i == 0 && next != extents.end();
            const double at = atStart ? next->from - thresholds.padding : before + 2 * thresholds.padding;
            extents[i].add(at, at);
        } else {
            const auto empty = static_cast<double>(next - (extents.begin() + static_cast<std::ptrdiff_t>(i)));
            const double at = before + (next->from - before) / (empty + 1);
            extents[i].add(at, at);
        }
        before = extents[i].to;
    }
    const auto lineIn = [&](double from, double to, double wanted) -> std::optional<double> {
        std::optional<double> best;
        for (const Line &line : lines) {
            const bool beside =
                std::min(line.to, along.to) - std::max(line.from, along.from) >
                rulings::thresholds.minCoveredSide * std::min(line.to - line.from, along.to - along.from);
            if (beside && line.at >= from && line.at <= to &&
                (!best || std::abs(line.at - wanted) < std::abs(*best - wanted))) {
                best = line.at;
            }
        }
        return best;
    };
    std::vector<double> edges;
    const double start = extents.front().from;
    edges.push_back(lineIn(start - thresholds.maxEdgeGap, start + thresholds.tolerance, start)
                        .value_or(start - thresholds.padding));
    for (std::size_t i = 1; i < extents.size(); ++i) {
        const double from = extents[i - 1].to;
        const double to = extents[i].from;
        if (from > to + thresholds.tolerance) {
            return std::nullopt;
        }
        const double middle = (from + to) / 2;
        edges.push_back(std::max(
            edges.back(), lineIn(from - thresholds.tolerance, to + thresholds.tolerance, middle).value_or(middle)));
    }
    const double end = extents.back().to;
    edges.push_back(std::max(
        edges.back(),
        lineIn(end - thresholds.tolerance, end + thresholds.maxEdgeGap, end).value_or(end + thresholds.padding)));
    return edges;
}

Border borderAt(double at, double from, double to, const std::vector<Line> &lines)
{
    double covered = 0;
    Border border;
    for (const Line &line : lines) {
        const double common = std::min(line.to, to) - std::max(line.from, from);
        if (std::abs(line.at - at) <= thresholds.sameLine && common > 0) {
            covered += common;
            border = line.border.width > border.width ? line.border : border;
        }
    }
    return covered >= rulings::thresholds.minCoveredSide * (to - from) ? border : Border{};
}

std::vector<Extent> extentsOf(const Part &part, bool ofRows)
{
    std::vector<Extent> extents(static_cast<std::size_t>(ofRows ? part.rows : part.columns));
    for (std::size_t i = 0; i < part.cells.size(); ++i) {
        const TaggedCell &cell = part.cells[i];
        if ((ofRows ? cell.rowSpan : cell.columnSpan) > 1) {
            continue;
        }
        for (const RawWord *word : part.words[i]) {
            const Box body = bodyOf(*word);
            Extent &extent = extents[static_cast<std::size_t>(ofRows ? cell.row : cell.column)];
            extent.add(ofRows ? body.top : body.left, ofRows ? body.bottom : body.right);
        }
    }
    return extents;
}

Cell cellAt(const TaggedCell &from, const Table &table, const std::vector<Line> &across, const std::vector<Line> &down)
{
    Cell cell;
    cell.row = from.row;
    cell.column = from.column;
    cell.rowSpan = from.rowSpan;
    cell.columnSpan = from.columnSpan;
    const auto row = static_cast<std::size_t>(from.row);
    const auto column = static_cast<std::size_t>(from.column);
    cell.box = {
        table.columnEdges[column], table.rowEdges[row],
        table.columnEdges[column + static_cast<std::size_t>(from.columnSpan)],
        table.rowEdges[row + static_cast<std::size_t>(from.rowSpan)]};
    cell.left = borderAt(cell.box.left, cell.box.top, cell.box.bottom, down);
    cell.right = borderAt(cell.box.right, cell.box.top, cell.box.bottom, down);
    cell.top = borderAt(cell.box.top, cell.box.left, cell.box.right, across);
    cell.bottom = borderAt(cell.box.bottom, cell.box.left, cell.box.right, across);
    return cell;
}

/// Adds cells without words where the grid has none.
void fillGaps(Part &part)
{
    std::set<std::pair<int, int>> taken;
    for (const TaggedCell &cell : part.cells) {
        for (int row = cell.row; row < cell.row + cell.rowSpan; ++row) {
            for (int column = cell.column; column < cell.column + cell.columnSpan; ++column) {
                taken.emplace(row, column);
            }
        }
    }
    for (int row = 0; row < part.rows; ++row) {
        for (int column = 0; column < part.columns; ++column) {
            if (taken.count({row, column}) == 0) {
                part.cells.push_back({row, column, 1, 1, false});
                part.words.emplace_back();
            }
        }
    }
}

int headRows(const Part &part)
{
    std::vector<bool> isHead(static_cast<std::size_t>(part.rows), true);
    for (std::size_t i = 0; i < part.cells.size(); ++i) {
        if (!part.cells[i].head && !(part.words[i].empty() && part.cells[i].column == 0)) {
            isHead[static_cast<std::size_t>(part.cells[i].row)] = false;
        }
    }
    const auto rows = std::find(isHead.begin(), isHead.end(), false) - isHead.begin();
    return rows == static_cast<std::ptrdiff_t>(isHead.size()) ? 0 : static_cast<int>(rows);
}

std::optional<TableWords> tableOf(Part part, const Rulings &rulings)
{
    const double places = static_cast<double>(part.rows) * part.columns;
    if (places < 2 || places > thresholds.maxPlaces) {
        return std::nullopt;
    }
    if (runsLeftwards(part)) {
        for (TaggedCell &cell : part.cells) {
            cell.column = part.columns - cell.column - cell.columnSpan;
        }
    }
    fillGaps(part);
    Extent across;
    Extent down;
    for (const WordRefs &words : part.words) {
        for (const RawWord *word : words) {
            const Box body = bodyOf(*word);
            across.add(body.left, body.right);
            down.add(body.top, body.bottom);
        }
    }
    const std::vector<Line> horizontal = linesOf(rulings.horizontal, true);
    const std::vector<Line> vertical = linesOf(rulings.vertical, false);
    const auto columnEdges = edgesOf(extentsOf(part, false), vertical, down);
    const auto rowEdges = edgesOf(extentsOf(part, true), horizontal, across);
    if (!columnEdges || !rowEdges) {
        return std::nullopt;
    }
    TableWords found;
    found.table.columnEdges = *columnEdges;
    found.table.rowEdges = *rowEdges;
    found.table.box = {columnEdges->front(), rowEdges->front(), columnEdges->back(), rowEdges->back()};
    if (std::any_of(part.cells.begin(), part.cells.end(), [](const TaggedCell &cell) { return cell.head; })) {
        found.headRows = headRows(part);
    }
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < part.cells.size(); ++i) {
        order.push_back(i);
    }
    std::sort(order.begin(), order.end(), [&part](std::size_t a, std::size_t b) {
        return std::pair(part.cells[a].row, part.cells[a].column) < std::pair(part.cells[b].row, part.cells[b].column);
    });
    for (const std::size_t i : order) {
        found.table.cells.push_back(cellAt(part.cells[i], found.table, horizontal, vertical));
        const Cell &cell = found.table.cells.back();
        found.table.ruled = found.table.ruled || cell.left.width > 0 || cell.top.width > 0;
        found.words.push_back(std::move(part.words[i]));
    }
    return found;
}

/// The cell of each word.
std::map<const RawWord *, std::size_t> cellsOf(const TableWords &table)
{
    std::map<const RawWord *, std::size_t> cells;
    for (std::size_t i = 0; i < table.words.size(); ++i) {
        for (const RawWord *word : table.words[i]) {
            cells.emplace(word, i);
        }
    }
    return cells;
}

/// Whether both tables have the same grid and nearly all words at the same places of it.
bool agree(const TableWords &drawn, const TableWords &tagged)
{
    if (drawn.table.rows() != tagged.table.rows() || drawn.table.columns() != tagged.table.columns()) {
        return false;
    }
    const auto inDrawn = cellsOf(drawn);
    const auto inTagged = cellsOf(tagged);
    std::size_t same = 0;
    for (const auto &[word, cell] : inTagged) {
        const auto other = inDrawn.find(word);
        if (other != inDrawn.end()) {
            const Cell &a = tagged.table.cells[cell];
            const Cell &b = drawn.table.cells[other->second];
            same += a.row == b.row && a.column == b.column ? 1 : 0;
        }
    }
    return static_cast<double>(same) >=
           thresholds.minSameWords * static_cast<double>(std::max(inDrawn.size(), inTagged.size()));
}

bool shareWords(const TableWords &a, const TableWords &b)
{
    const auto inA = cellsOf(a);
    const auto inB = cellsOf(b);
    return std::any_of(inA.begin(), inA.end(), [&inB](const auto &each) { return inB.count(each.first) > 0; });
}

} // namespace

void useTaggedTables(
    std::vector<TableWords> &tables, const std::vector<TaggedTable> &tagged, const Rulings &rulings,
    const WordRefs &words)
{
    std::map<int, std::map<int, WordRefs>> byTable;
    for (const RawWord *word : words) {
        if (word->tagged && word->tagged->table >= 0 && word->tagged->cell >= 0) {
            byTable[word->tagged->table][word->tagged->cell].push_back(word);
        }
    }
    tables.erase(std::remove_if(tables.begin(), tables.end(), isDenied), tables.end());
    for (const auto &[number, cells] : byTable) {
        std::optional<TableWords> own = tableOf(partOf(tagged[static_cast<std::size_t>(number)], cells), rulings);
        if (!own) {
            continue;
        }
        const auto drawn =
            std::find_if(tables.begin(), tables.end(), [&own](const TableWords &each) { return agree(each, *own); });
        if (drawn != tables.end()) { // its lines say more about its edges, and where text of two cells is tagged as one
            drawn->headRows = own->headRows;
            continue;
        }
        tables.erase(
            std::remove_if(
                tables.begin(), tables.end(), [&own](const TableWords &each) { return shareWords(each, *own); }),
            tables.end());
        tables.push_back(std::move(*own));
    }
}

namespace {

// Whether the tags read the table column by column, which is how nobody reads one.
bool isReadDownwards(const TableWords &table)
{
    std::map<std::pair<int, int>, std::size_t> numbers;
    for (std::size_t i = 0; i < table.words.size(); ++i) {
        const auto tagged = std::find_if(table.words[i].begin(), table.words[i].end(), [](const RawWord *word) {
            return word->tagged && word->tagged->table < 0;
        });
        if (tagged != table.words[i].end()) {
            numbers.emplace(
                std::pair(table.table.cells[i].row, table.table.cells[i].column), (*tagged)->tagged->number);
        }
    }
    int downwards = 0;
    for (const auto &[place, number] : numbers) {
        const auto beside = numbers.find({place.first, place.second + 1});
        const auto below = numbers.find({place.first + 1, place.second});
        if (beside != numbers.end() && below != numbers.end() && beside->second != below->second) {
            downwards += below->second < beside->second ? 1 : -1;
        }
    }
    return downwards > 0;
}

} // namespace

bool isDenied(const TableWords &table)
{
    if (isReadDownwards(table)) {
        return true;
    }
    std::map<std::pair<const TaggedParagraph *, int>, std::set<int>> columns; // of a paragraph in a row
    for (std::size_t i = 0; i < table.words.size(); ++i) {
        for (const RawWord *word : table.words[i]) {
            if (word->tagged && word->tagged->table < 0) {
                columns[{word->tagged, table.table.cells[i].row}].insert(table.table.cells[i].column);
            }
        }
    }
    std::size_t all = 0;
    std::size_t across = 0;
    for (std::size_t i = 0; i < table.words.size(); ++i) {
        all += table.words[i].size();
        for (const RawWord *word : table.words[i]) {
            const auto found = columns.find({word->tagged, table.table.cells[i].row});
            across += found != columns.end() && found->second.size() > 1 ? 1 : 0;
        }
    }
    return static_cast<double>(across) > thresholds.maxAcross * static_cast<double>(all);
}

} // namespace quorra::model
