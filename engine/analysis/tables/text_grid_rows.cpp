// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/grid_columns.h"
#include "tables/rulings.h"
#include "tables/text_grid.h"

#include "base/number.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using textGrid::thresholds;

bool startsInLowerCase(const WordRefs &words)
{
    const QChar first = words.front()->text.front();
    return first.isLower() || first == QLatin1Char('(');
}

bool isNumber(const WordRefs &words)
{
    return looksNumeric(joinedText(words));
}

// Years and dates are as common in heads as in columns.
bool isDate(const WordRefs &words)
{
    static const QRegularExpression date(
        QStringLiteral("^(?:(?:19|20)\\d\\d(?:[-–—/](?:\\d\\d){1,2})?|\\d{1,2}[./]\\d{1,2}[./](?:\\d\\d){1,2})$"));
    return date.match(joinedText(words)).hasMatch();
}

template <typename Pieces>
const auto *pieceIn(const Pieces &pieces, int column)
{
    const auto found = std::find_if(pieces.begin(), pieces.end(), [column](const auto &piece) {
        return piece.column <= column && column < piece.end();
    });
    return found == pieces.end() ? nullptr : &*found;
}

} // namespace

/// A heading of one or several lines, and its level in the head.
struct TextGrid::HeadCell
{
    Piece piece;
    double baseline = 0;
    int top = 0;
    int bottom = -1; // included; -1 until a heading below it is known
};

bool TextGrid::ruleBetween(const Box &upper, const Box &lower) const
{
    const double left = std::min(upper.left, lower.left);
    const double right = std::max(upper.right, lower.right);
    return std::any_of(m_rules.horizontal.begin(), m_rules.horizontal.end(), [&](const Rule &rule) {
        return rule.y1 > upper.centreY() && rule.y1 < lower.centreY() && rule.x1 < right && rule.x2 > left;
    });
}

// How many lines at the top are the head: those above a rule, or else those above the first line with numbers. The
// lines of a table of words without rules are no head.
std::size_t TextGrid::headerLines() const
{
    const std::size_t most = std::min(thresholds.maxHeaderLines, m_grid.size() - 1);
    std::size_t firstNumbers = m_grid.size();
    for (std::size_t i = 0; i < m_grid.size() && firstNumbers == m_grid.size(); ++i) {
        const bool numbers = std::any_of(m_grid[i].pieces.begin(), m_grid[i].pieces.end(), [](const Piece &piece) {
            return piece.column > 0 && isNumber(piece.words) && !isDate(piece.words);
        });
        firstNumbers = numbers ? i : firstNumbers;
    }
    // With numbers, the head ends at the last rule above them: rules under headings of groups may add up to a full one.
    std::size_t ruled = 0;
    for (std::size_t i = 0; i < most; ++i) {
        const bool early = static_cast<double>(i + 1) <= thresholds.maxHeaderShare * static_cast<double>(m_grid.size());
        if (i <= firstNumbers && m_ruleAfter[i] && (early || i < firstNumbers)) {
            ruled = i + 1 <= firstNumbers || ruled == 0 ? i + 1 : ruled;
            if (firstNumbers > most) {
                break;
            }
        }
    }
    if (ruled > 0) {
        return ruled;
    }
    if (firstNumbers == 0 || firstNumbers > most) {
        return 0;
    }
    // Lines with nothing but a text in the first column are the headings of the first rows.
    std::size_t lines = firstNumbers;
    const auto isSideHead = [](const GridRow &row) { return row.pieces.size() == 1 && row.pieces.front().column == 0; };
    // So is a text across the middle below headings side by side.
    const auto isTitle = [this](std::size_t i) {
        const Piece &piece = m_grid[i].pieces.front();
        return i > 0 && m_grid[i].pieces.size() == 1 && piece.span > 1 &&
               std::all_of(
                   m_grid[i - 1].pieces.begin(), m_grid[i - 1].pieces.end(),
                   [](const Piece &p) { return p.span == 1; }) &&
               pieceIn(m_grid[i - 1].pieces, piece.column) && pieceIn(m_grid[i - 1].pieces, piece.end() - 1);
    };
    while (lines > 0 && (isSideHead(m_grid[lines - 1]) || isTitle(lines - 1))) {
        --lines;
    }
    return lines > 0 ? lines : firstNumbers;
}

bool TextGrid::startsWithHead() const
{
    const std::vector<Piece> &pieces = m_grid.front().pieces;
    return pieces.size() > 1 && std::none_of(pieces.begin() + 1, pieces.end(), [](const Piece &piece) {
               return isNumber(piece.words) && !isDate(piece.words);
           });
}

// Whether each text that stands alone below the head, in the middle of the table and under no other text, is the title
// of the rows below it: it spans all columns.
void TextGrid::spanTitlesOfRows()
{
    const double middle = (m_edges.front() + m_edges.back()) / 2;
    for (std::size_t i = std::max<std::size_t>(1, m_headLines); i < m_grid.size(); ++i) {
        GridRow &row = m_grid[i];
        Piece &piece = row.pieces.front();
        const Piece *above = pieceIn(m_grid[i - 1].pieces, piece.column);
        if (row.pieces.size() == 1 && (piece.column > 0 || piece.span > 1) && !isNumber(piece.words) &&
            !startsInLowerCase(piece.words) &&
            std::abs(piece.box.centreX() - middle) <= thresholds.maxOffCentre * row.size &&
            (!above || isNumber(above->words) || piece.span > 1)) {
            piece.column = 0;
            piece.span = columns();
        }
    }
}

// Where two headings came into one column although the head has as many texts as there are columns, each gets its own:
// the edges move to where they divide the headings as well as the texts below.
void TextGrid::divideHeads()
{
    const auto head =
        std::find_if(m_grid.begin(), m_grid.begin() + static_cast<std::ptrdiff_t>(m_headLines), [](const GridRow &row) {
            return row.joined;
        });
    if (head == m_grid.begin() + static_cast<std::ptrdiff_t>(m_headLines)) {
        return;
    }
    const std::vector<Segment> texts = cellTexts(m_lines[static_cast<std::size_t>(head - m_grid.begin())]);
    if (texts.size() != static_cast<std::size_t>(columns())) {
        return;
    }
    std::vector<Box> extents;
    extents.reserve(texts.size());
    for (const Segment &text : texts) {
        extents.push_back(text.box);
    }
    for (auto row = m_grid.begin() + static_cast<std::ptrdiff_t>(m_headLines); row != m_grid.end(); ++row) {
        for (const Piece &piece : row->pieces) {
            if (piece.span == 1) {
                Box &extent = extents[static_cast<std::size_t>(piece.column)];
                extent = united(extent, piece.box);
            }
        }
    }
    std::vector<double> edges{m_edges.front()};
    for (std::size_t i = 1; i < extents.size(); ++i) {
        if (extents[i - 1].right >= extents[i].left) {
            return;
        }
        edges.push_back((extents[i - 1].right + extents[i].left) / 2);
    }
    edges.push_back(m_edges.back());
    m_edges = std::move(edges);
    fillRows();
}

// Joins a column that holds headings alone with the one beside it that has no heading: a heading may stand at the other
// side of its column than the texts below it.
void TextGrid::joinHeadsWithColumns()
{
    const auto n = static_cast<std::size_t>(columns());
    std::vector<char> heads(n, 0);
    std::vector<char> bodies(n, 0);
    for (std::size_t i = 0; i < m_grid.size(); ++i) {
        for (const Piece &piece : m_grid[i].pieces) {
            for (int column = piece.column; column < piece.end(); ++column) {
                (i < m_headLines ? heads : bodies)[static_cast<std::size_t>(column)] = 1;
            }
        }
    }
    for (const int side : {1, -1}) {
        std::vector<double> edges = m_edges;
        bool all = true;
        for (int column = columns() - 1; column >= 0; --column) {
            const int other = column + side;
            if (bodies[static_cast<std::size_t>(column)]) {
                continue;
            }
            all = all && other > 0 && other < columns() && !heads[static_cast<std::size_t>(other)];
            edges.erase(edges.begin() + std::max(column, other));
        }
        if (all && edges.size() < m_edges.size()) {
            m_edges = std::move(edges);
            fillRows();
            m_headLines = headerLines();
            return;
        }
    }
}

// The headings, each with all of its lines, and its level in the head.
std::vector<TextGrid::HeadCell> TextGrid::headCells() const
{
    std::vector<HeadCell> cells;
    std::vector<int> lowest(static_cast<std::size_t>(columns()), -1); // the heading at the bottom of each column
    for (std::size_t i = 0; i < m_headLines; ++i) {
        const GridRow &row = m_grid[i];
        for (const Piece &piece : row.pieces) {
            const auto first = static_cast<std::size_t>(piece.column);
            const auto end = static_cast<std::size_t>(piece.end());
            HeadCell *above = lowest[first] < 0 ? nullptr : &cells[static_cast<std::size_t>(lowest[first])];
            const bool isOne = above && std::all_of(
                                            lowest.begin() + static_cast<std::ptrdiff_t>(first),
                                            lowest.begin() + static_cast<std::ptrdiff_t>(end),
                                            [&](int cell) { return cell == lowest[first]; });
            const auto inSpan = std::count_if(row.pieces.begin(), row.pieces.end(), [&](const Piece &other) {
                return above && other.column < above->piece.end() && other.end() > above->piece.column;
            });
            const bool sameColumns =
                isOne && (above->piece.span == piece.span ||
                          (inSpan == 1 && std::abs(above->piece.box.centreX() - piece.box.centreX()) <=
                                              thresholds.maxOffCentre * row.size));
            if (sameColumns && row.baseline - above->baseline <= thresholds.maxHeaderStep * row.size &&
                !ruleBetween(above->piece.box, piece.box)) {
                above->piece.words.insert(above->piece.words.end(), piece.words.begin(), piece.words.end());
                above->piece.box = united(above->piece.box, piece.box);
                above->baseline = row.baseline;
                continue;
            }
            HeadCell cell{piece, row.baseline};
            for (std::size_t c = first; c < end; ++c) {
                if (lowest[c] >= 0) {
                    cell.top = std::max(cell.top, cells[static_cast<std::size_t>(lowest[c])].top + 1);
                }
            }
            for (std::size_t c = first; c < end; ++c) {
                if (lowest[c] >= 0) {
                    int &bottom = cells[static_cast<std::size_t>(lowest[c])].bottom;
                    bottom = bottom < 0 ? cell.top - 1 : std::min(bottom, cell.top - 1);
                }
            }
            cells.push_back(cell);
            std::fill(
                lowest.begin() + static_cast<std::ptrdiff_t>(first), lowest.begin() + static_cast<std::ptrdiff_t>(end),
                static_cast<int>(cells.size()) - 1);
        }
    }
    return cells;
}

// One row for each level of the head. A heading with nothing below it reaches down to the last of them.
std::vector<TextGrid::GridRow> TextGrid::headRows() const
{
    std::vector<HeadCell> cells = headCells();
    int levels = 0;
    for (const HeadCell &cell : cells) {
        levels = std::max(levels, cell.top + 1);
    }
    std::vector<GridRow> rows(static_cast<std::size_t>(levels));
    for (HeadCell &cell : cells) {
        const int bottom = cell.bottom < 0 ? levels - 1 : cell.bottom;
        cell.piece.rowSpan = bottom - cell.top + 1;
        rows[static_cast<std::size_t>(cell.top)].pieces.push_back(cell.piece);
    }
    // A heading of several rows fills all of them, but says only about the last where the rows below it begin.
    for (int level = 0; level < levels; ++level) {
        Box &box = rows[static_cast<std::size_t>(level)].box;
        for (const HeadCell &cell : cells) {
            if (cell.top + cell.piece.rowSpan - 1 == level && (cell.top == level || level == levels - 1)) {
                Box part = cell.piece.box;
                part.top = cell.top == level ? part.top : part.bottom;
                box = united(box, part);
            }
        }
    }
    for (GridRow &row : rows) {
        std::sort(
            row.pieces.begin(), row.pieces.end(), [](const Piece &a, const Piece &b) { return a.column < b.column; });
    }
    return rows;
}

// Whether the upper row is the first part of a key whose last line stands beside the other cells: the key goes on in
// lower case, with a word for which the line above had no room.
bool TextGrid::wrapsBeside(const GridRow &upper, const GridRow &lower) const
{
    const Piece &last = upper.pieces.back();
    const Piece &first = lower.pieces.front();
    if (last.column > 0 || last.span > 1 || first.span > 1 || !first.words.front()->text.front().isLower()) {
        return false;
    }
    double right = 0;
    for (const GridRow &row : m_grid) {
        const Piece &piece = row.pieces.front();
        right = piece.column == 0 && piece.span == 1 ? std::max(right, piece.box.right) : right;
    }
    return last.box.right + first.words.front()->box.width() + thresholds.minPieceGap * lower.size > right;
}

// Whether the lower row only continues cells of the upper one: it has no key in the first column, and begins in lower
// case or has fewer cells.
bool TextGrid::continues(const GridRow &upper, const GridRow &lower, double usualStep) const
{
    if (ruleBetween(upper.box, lower.box) || lower.baseline - upper.baseline > thresholds.maxWrapStep * usualStep) {
        return false;
    }
    const bool hasKey = lower.pieces.front().column == 0;
    if (hasKey && lower.pieces.size() > 1) {
        return wrapsBeside(upper, lower);
    }
    bool lowerCase = false;
    for (const Piece &piece : lower.pieces) {
        const Piece *above = pieceIn(upper.pieces, piece.column);
        if (!above || above->column != piece.column || isNumber(piece.words) ||
            (isNumber(above->words) && !startsInLowerCase(piece.words))) {
            return false;
        }
        lowerCase = lowerCase || startsInLowerCase(piece.words);
    }
    return lowerCase || (!hasKey && lower.pieces.size() < upper.pieces.size() && upper.pieces.front().column == 0);
}

// The distance from the lines above to this line, in em: that of the baselines, unless lines of other columns reach
// farther down. Such lines are beside one another because cells are centred in their rows.
double TextGrid::stepTo(std::size_t line) const
{
    double reached = m_grid[line - 1].box.bottom;
    for (std::size_t i = line - 1; i > 0 && line - i < thresholds.maxLinesInRow; --i) {
        reached = std::max(reached, m_grid[i - 1].box.bottom);
    }
    const GridRow &row = m_grid[line];
    return (row.baseline - reached) / row.size;
}

// The distance of baselines from which on lines of the body are different rows because rows are set apart; 0 if they
// are not.
double TextGrid::rowGap() const
{
    std::vector<double> steps;
    bool beside = false;
    for (std::size_t i = m_headLines + 1; i < m_grid.size(); ++i) {
        const double step = stepTo(i);
        if (!m_ruleAfter[i - 1] && step >= thresholds.minInnerStep) {
            steps.push_back(step);
        }
        beside = beside || step < thresholds.minInnerStep;
    }
    std::sort(steps.begin(), steps.end());
    double gap = beside ? thresholds.minInnerStep : 0;
    double widest = thresholds.minRowGap;
    for (std::size_t i = 1; i < steps.size() && steps[i - 1] <= thresholds.maxInnerStep; ++i) {
        if (steps[i] >= widest * steps[i - 1]) {
            widest = steps[i] / steps[i - 1];
            gap = (steps[i] + steps[i - 1]) / 2;
        }
    }
    return gap;
}

// Whether most groups of lines are one row each because texts wrap in some of their columns only. Rows that stand close
// together have a text in each line of most columns.
bool TextGrid::wrapInSomeColumns(const std::vector<std::pair<std::size_t, std::size_t>> &groups) const
{
    std::size_t several = 0;
    std::size_t ragged = 0;
    for (const auto &[from, to] : groups) {
        std::vector<std::size_t> lines(static_cast<std::size_t>(columns()), 0);
        for (std::size_t i = from; i < to; ++i) {
            for (const Piece &piece : m_grid[i].pieces) {
                ++lines[static_cast<std::size_t>(piece.column)];
            }
        }
        lines.erase(std::remove(lines.begin(), lines.end(), 0U), lines.end());
        const auto [fewest, most] = std::minmax_element(lines.begin(), lines.end());
        several += *most > 1 ? 1 : 0;
        ragged += *most > *fewest ? 1 : 0;
    }
    return static_cast<double>(ragged) >= thresholds.minRagged * static_cast<double>(several);
}

// Whether the lines can be one row: no column holds two numbers, and no two lines have a key with other cells beside
// it, unless keys wrap.
bool TextGrid::canBeOneRow(std::size_t from, std::size_t to, bool keysWrap) const
{
    std::vector<int> numbers(static_cast<std::size_t>(columns()), 0);
    int keys = 0;
    for (std::size_t i = from; i < to; ++i) {
        for (const Piece &piece : m_grid[i].pieces) {
            if (piece.span == 1 && isNumber(piece.words) && ++numbers[static_cast<std::size_t>(piece.column)] > 1) {
                return false;
            }
        }
        const Piece &first = m_grid[i].pieces.front();
        keys += first.column == 0 && m_grid[i].pieces.size() > 1 && !startsInLowerCase(first.words) ? 1 : 0;
    }
    return (keysWrap || keys < 2) && to - from <= thresholds.maxLinesInRow &&
           static_cast<double>(to - from) <= thresholds.maxFirstShare * static_cast<double>(m_grid.size());
}

void TextGrid::addRowsOfBand(
    std::vector<GridRow> &rows, std::size_t from, std::size_t to, double rowGap, bool keysWrap) const
{
    std::vector<double> steps;
    for (std::size_t i = 1; i < m_grid.size(); ++i) {
        steps.push_back(m_grid[i].baseline - m_grid[i - 1].baseline);
    }
    const double usualStep = median(steps);
    const auto takeIn = [](GridRow &upper, const GridRow &lower) {
        for (const Piece &piece : lower.pieces) {
            const auto home = std::find_if(upper.pieces.begin(), upper.pieces.end(), [&piece](const Piece &p) {
                return p.column < piece.end() && p.end() > piece.column;
            });
            if (home == upper.pieces.end()) {
                upper.pieces.push_back(piece);
            } else {
                home->words.insert(home->words.end(), piece.words.begin(), piece.words.end());
                home->box = united(home->box, piece.box);
            }
        }
        std::sort(upper.pieces.begin(), upper.pieces.end(), [](const Piece &a, const Piece &b) {
            return a.column < b.column;
        });
        upper.box = united(upper.box, lower.box);
        upper.baseline = lower.baseline;
    };
    for (std::size_t i = from; i < to;) {
        std::size_t end = i + 1;
        while (end < to && (rowGap == 0 || stepTo(end) < rowGap)) {
            ++end;
        }
        const bool together = rowGap > 0 && end > i + 1 && canBeOneRow(i, end, keysWrap);
        const std::size_t first = rows.size();
        for (std::size_t k = i; k < end; ++k) {
            const bool joins = rows.size() > first && (together || continues(rows.back(), m_grid[k], usualStep));
            if (joins) {
                takeIn(rows.back(), m_grid[k]);
            } else {
                rows.push_back(m_grid[k]);
            }
        }
        i = end;
    }
}

// The lines of the body that are closer to one another than rows are.
std::vector<std::pair<std::size_t, std::size_t>> TextGrid::groupsSetApart(double rowGap) const
{
    std::vector<std::pair<std::size_t, std::size_t>> groups;
    for (std::size_t i = m_headLines; i < m_grid.size(); ++i) {
        if (groups.empty() || m_ruleAfter[i - 1] || rowGap == 0 || stepTo(i) >= rowGap) {
            groups.emplace_back(i, i + 1);
        } else {
            groups.back().second = i + 1;
        }
    }
    return groups;
}

// The rows under the head. Where rules divide them, the lines between two rules are one row, unless they cannot be.
std::vector<TextGrid::GridRow> TextGrid::bodyRows() const
{
    std::vector<std::pair<std::size_t, std::size_t>> bands;
    std::size_t from = m_headLines;
    for (std::size_t i = m_headLines; i < m_grid.size(); ++i) {
        if (m_ruleAfter[i] || i + 1 == m_grid.size()) {
            bands.emplace_back(from, i + 1);
            from = i + 1;
        }
    }
    const auto lines = static_cast<double>(m_grid.size() - m_headLines);
    const bool ruled =
        bands.size() >= thresholds.minBands && lines <= thresholds.maxLinesInBand * static_cast<double>(bands.size());
    const double gap = rowGap();
    const bool bandsWrap = ruled && wrapInSomeColumns(bands);
    const bool groupsWrap = wrapInSomeColumns(groupsSetApart(gap));
    constexpr double always = 1e9;
    std::vector<GridRow> rows;
    for (const auto &[first, end] : bands) {
        const bool whole = ruled && canBeOneRow(first, end, bandsWrap);
        addRowsOfBand(rows, first, end, whole ? always : gap, whole ? bandsWrap : groupsWrap);
    }
    return rows;
}

// Makes the rules between the rows borders of the cells along which they run.
void TextGrid::addBorders(Table &table) const
{
    const auto nearestEdge = [](const std::vector<double> &edges, double at) {
        const auto nearest = std::min_element(
            edges.begin(), edges.end(), [at](double a, double b) { return std::abs(a - at) < std::abs(b - at); });
        return static_cast<int>(nearest - edges.begin());
    };
    for (const Rule &rule : m_rules.horizontal) {
        const double y = rule.y1;
        if (rule.width <= 0 || y < table.box.top - thresholds.rowMargin ||
            y > table.box.bottom + thresholds.rowMargin) {
            continue;
        }
        const int line = nearestEdge(table.rowEdges, y);
        for (Cell &cell : table.cells) {
            const double along = std::min(rule.x2, cell.box.right) - std::max(rule.x1, cell.box.left);
            if (along < rulings::thresholds.minCoveredSide * cell.box.width()) {
                continue;
            }
            if (cell.row == line) {
                cell.top = {rule.width, rule.colour};
            }
            if (cell.row + cell.rowSpan == line) {
                cell.bottom = {rule.width, rule.colour};
            }
        }
    }
    for (const Rule &rule : m_rules.vertical) {
        const int line = nearestEdge(table.columnEdges, rule.x1);
        if (rule.width <= 0 ||
            std::abs(table.columnEdges[static_cast<std::size_t>(line)] - rule.x1) > thresholds.maxRuleOverhang) {
            continue;
        }
        for (Cell &cell : table.cells) {
            const double along = std::min(rule.y2, cell.box.bottom) - std::max(rule.y1, cell.box.top);
            if (along < rulings::thresholds.minCoveredSide * cell.box.height()) {
                continue;
            }
            if (cell.column == line) {
                cell.left = {rule.width, rule.colour};
            }
            if (cell.column + cell.columnSpan == line) {
                cell.right = {rule.width, rule.colour};
            }
        }
    }
}

TableWords TextGrid::tableWords() const
{
    std::vector<GridRow> grid = headRows();
    for (GridRow &row : bodyRows()) {
        grid.push_back(std::move(row));
    }
    TableWords result;
    Table &table = result.table;
    table.columnEdges = m_edges;
    const double whole = m_edges.back() - m_edges.front();
    // The rule between two lines that is longest, if there is one, is the edge between their rows.
    const auto edgeBetween = [&](double top, double bottom, double otherwise) {
        const Rule *longest = nullptr;
        for (const Rule &rule : m_rules.horizontal) {
            if (rule.y1 > top && rule.y1 < bottom && rule.length() <= thresholds.maxFrameWidth * whole &&
                rule.x1 < m_edges.back() && rule.x2 > m_edges.front() &&
                (!longest || rule.length() > longest->length())) {
                longest = &rule;
            }
        }
        return longest ? longest->y1 : otherwise;
    };
    const Box &first = grid.front().box;
    const Box &last = grid.back().box;
    const double reach = thresholds.maxFrameGap * m_lines.front().size;
    table.rowEdges = {edgeBetween(first.top - reach, first.top, first.top - thresholds.rowMargin)};
    for (std::size_t i = 1; i < grid.size(); ++i) {
        const double upper = grid[i - 1].box.bottom;
        const double lower = grid[i].box.top;
        const double edge = edgeBetween(upper, lower, (upper + lower) / 2);
        table.rowEdges.push_back(std::max(edge, table.rowEdges.back())); // lines of a head may overlap
    }
    table.rowEdges.push_back(edgeBetween(last.bottom, last.bottom + reach, last.bottom + thresholds.rowMargin));
    table.box = {m_edges.front(), table.rowEdges.front(), m_edges.back(), table.rowEdges.back()};
    const auto width = static_cast<std::size_t>(columns());
    std::vector<char> taken(grid.size() * width, 0);
    for (std::size_t r = 0; r < grid.size(); ++r) {
        for (std::size_t column = 0; column < width; ++column) {
            if (taken[r * width + column]) {
                continue;
            }
            const auto piece = std::find_if(grid[r].pieces.begin(), grid[r].pieces.end(), [column](const Piece &p) {
                return p.column == static_cast<int>(column);
            });
            Cell cell;
            cell.row = static_cast<int>(r);
            cell.column = static_cast<int>(column);
            if (piece != grid[r].pieces.end()) {
                cell.columnSpan = piece->span;
                cell.rowSpan = piece->rowSpan;
            }
            const std::size_t right = column + static_cast<std::size_t>(cell.columnSpan);
            const std::size_t bottom = r + static_cast<std::size_t>(cell.rowSpan);
            for (std::size_t i = r; i < bottom; ++i) {
                for (std::size_t k = column; k < right; ++k) {
                    taken[i * width + k] = 1;
                }
            }
            cell.box = {m_edges[column], table.rowEdges[r], m_edges[right], table.rowEdges[bottom]};
            table.cells.push_back(cell);
            result.words.push_back(piece == grid[r].pieces.end() ? WordRefs() : piece->words);
        }
    }
    addBorders(table);
    return result;
}

} // namespace quorra::model
