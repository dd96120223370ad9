// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/text_grid.h"

#include "base/number.h"
#include "tables/grid_columns.h"
#include "text_lines/list_mark.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using textGrid::thresholds;

// The share of values close to their median.
double alignedShare(const std::vector<double> &values)
{
    const double middle = median(values);
    const auto near = std::count_if(values.begin(), values.end(), [middle](double value) {
        return std::abs(value - middle) <= textLines::thresholds.sameEdge;
    });
    return static_cast<double>(near) / static_cast<double>(std::max<std::size_t>(1, values.size()));
}

bool isNumber(const WordRefs &words)
{
    return looksNumeric(joinedText(words, QStringLiteral(" ")));
}

} // namespace

TextGrid::TextGrid(std::vector<TextLine> lines, const Rulings &rulings) : m_lines(std::move(lines))
{
    const double top = m_lines.front().box.top - m_lines.front().size;
    const double bottom = m_lines.back().box.bottom + m_lines.back().size;
    for (const Rule &rule : rulings.horizontal) {
        if (rule.y1 >= top && rule.y1 <= bottom) {
            m_rules.horizontal.push_back(rule);
        }
    }
    for (Rule rule : rulings.vertical) {
        rule.y1 = std::max(rule.y1, top);
        rule.y2 = std::min(rule.y2, bottom);
        if (rule.y1 < rule.y2) {
            m_rules.vertical.push_back(rule);
        }
    }
    m_edges = findColumnEdges(m_lines, m_rules.vertical);
    fillRows();
    dropEmptyColumns();
    findFullRules();
    m_headLines = headerLines();
    divideHeads();
    joinHeadsWithColumns();
    widenToFrame();
    if (columns() > 1) {
        spanTitlesOfRows();
        spanHeadsBetweenLines();
        spanUnderlinedHeads();
        spanCentredHeads();
    }
}

int TextGrid::columnAt(double x) const
{
    const auto next = std::upper_bound(m_edges.begin() + 1, m_edges.end() - 1, x);
    return static_cast<int>(next - m_edges.begin()) - 1;
}

// Whether the word after the piece is in the next cell: there is a gap between them at a column's edge, or both are
// numbers in different columns, however close they are.
bool TextGrid::isNextCell(const Piece &piece, const RawWord &word) const
{
    const Box body = bodyOf(word);
    const RawWord &last = *piece.words.back();
    if (isCurrencySign(last)) {
        return false;
    }
    if (looksNumeric(last.text) && looksNumeric(word.text) &&
        columnAt(body.centreX()) > columnAt(bodyOf(last).centreX())) {
        return true;
    }
    const double gap = (body.left - piece.box.right) / word.style.size;
    const double wide = word.style.fixedPitch ? gridColumns::thresholds.minCellGap : gridColumns::thresholds.minWeakGap;
    if (gap >= wide && columnAt(body.centreX()) > columnAt(bodyOf(last).centreX())) {
        return true;
    }
    return gap >= thresholds.minPieceGap && columnAt(body.left) > columnAt(piece.box.right - thresholds.edgeTolerance);
}

void TextGrid::addPiece(GridRow &row, const Segment &segment) const
{
    const std::size_t before = row.pieces.size();
    std::vector<Piece> pieces;
    for (const RawWord *word : segment.words) {
        const Box body = bodyOf(*word);
        if (pieces.empty() || isNextCell(pieces.back(), *word)) {
            pieces.emplace_back();
        }
        pieces.back().words.push_back(word);
        pieces.back().box = united(pieces.back().box, body);
    }
    for (Piece &piece : pieces) {
        const double slack = std::min(thresholds.maxSlack, piece.box.width() * thresholds.maxSlackShare);
        piece.column = columnAt(piece.box.left + slack);
        piece.span = std::max(1, columnAt(piece.box.right - slack) - piece.column + 1);
        if (piece.words.size() == 1 && looksNumeric(piece.words.front()->text)) {
            piece.column = columnAt(piece.box.centreX()); // a number may be wider than its column, but has only one
            piece.span = 1;
        } else if (piece.words.size() == 2 && isCurrencySign(*piece.words.front())) {
            piece.column = columnAt(bodyOf(*piece.words.back()).centreX());
            piece.span = 1;
        }
        Piece *last = row.pieces.empty() ? nullptr : &row.pieces.back();
        const int middle = columnAt(piece.box.centreX());
        if (last && last->end() > piece.column && columnAt(last->box.centreX()) < middle) {
            // Each has its middle in a column of its own, and only reaches into the other's.
            const int end = piece.column + piece.span;
            last->span = std::max(1, std::min(last->end(), middle) - last->column);
            piece.column = std::max(piece.column, last->end());
            piece.span = std::max(1, end - piece.column);
        }
        if (last && last->end() > piece.column) { // both reach into the column: one cell
            row.joined = row.joined || row.pieces.size() == before;
            last->words.insert(last->words.end(), piece.words.begin(), piece.words.end());
            last->box = united(last->box, piece.box);
            last->span = std::max(last->span, piece.end() - last->column);
        } else {
            row.pieces.push_back(piece);
        }
    }
}

void TextGrid::fillRows()
{
    m_grid.clear();
    for (const TextLine &line : m_lines) {
        GridRow row;
        row.box = line.box;
        row.baseline = line.baseline;
        row.size = line.size;
        for (const Segment &segment : cellTexts(line)) {
            addPiece(row, segment);
        }
        m_grid.push_back(std::move(row));
    }
}

// Joins columns that no text has to itself with the column before them.
void TextGrid::dropEmptyColumns()
{
    std::vector<char> used(static_cast<std::size_t>(columns()), 0);
    for (const GridRow &row : m_grid) {
        for (const Piece &piece : row.pieces) {
            used[static_cast<std::size_t>(piece.column)] |= piece.span == 1 ? 1 : 0;
        }
    }
    std::vector<double> edges{m_edges.front()};
    std::size_t end = 0; // of the last column with a text of its own
    for (std::size_t i = 0; i < used.size(); ++i) {
        if (used[i]) {
            if (end > 0) {
                edges.push_back((m_edges[end] + m_edges[i]) / 2);
            }
            end = i + 1;
        }
    }
    edges.push_back(m_edges.back());
    if (edges.size() != m_edges.size()) {
        m_edges = std::move(edges);
        fillRows();
    }
}

// Several rules side by side, each under the heading of one column, divide the table as one does.
void TextGrid::findFullRules()
{
    const double whole = m_edges.back() - m_edges.front();
    const auto isFull = [&](double top, double bottom) {
        std::vector<std::pair<double, double>> parts;
        for (const Rule &rule : m_rules.horizontal) {
            if (rule.y1 > top && rule.y1 <= bottom) {
                parts.emplace_back(std::max(rule.x1, m_edges.front()), std::min(rule.x2, m_edges.back()));
            }
        }
        std::sort(parts.begin(), parts.end());
        double covered = 0;
        double reached = m_edges.front();
        for (const auto &[from, to] : parts) {
            covered += std::max(0.0, to - std::max(from, reached));
            reached = std::max(reached, to);
        }
        return covered >= thresholds.minFullRule * whole;
    };
    m_ruleBefore = isFull(m_lines.front().box.top - m_lines.front().size, m_lines.front().box.centreY());
    m_ruleAfter.clear();
    for (std::size_t i = 0; i < m_grid.size(); ++i) {
        const double bottom =
            i + 1 < m_grid.size() ? m_grid[i + 1].box.centreY() : m_grid[i].box.bottom + m_grid[i].size;
        m_ruleAfter.push_back(isFull(m_grid[i].box.centreY(), bottom) ? 1 : 0);
    }
}

// The rules over the whole table show where its outer columns end.
void TextGrid::widenToFrame()
{
    const double left = m_edges.front();
    const double right = m_edges.back();
    for (const Rule &rule : m_rules.horizontal) {
        const double common = std::min(rule.x2, right) - std::max(rule.x1, left);
        if (common >= thresholds.minFullRule * (right - left) &&
            rule.length() <= thresholds.maxFrameWidth * (right - left)) {
            m_edges.front() = std::min(m_edges.front(), rule.x1);
            m_edges.back() = std::max(m_edges.back(), rule.x2);
        }
    }
}

// The only heading between two drawn lines spans the columns between them.
void TextGrid::spanHeadsBetweenLines()
{
    const auto isDrawn = [this](int edge) {
        return std::any_of(m_rules.vertical.begin(), m_rules.vertical.end(), [&](const Rule &rule) {
            return rule.width > 0 &&
                   std::abs(rule.x1 - m_edges[static_cast<std::size_t>(edge)]) <= thresholds.ruleTolerance;
        });
    };
    for (int from = 0; from < columns();) {
        int to = from + 1;
        while (to < columns() && !isDrawn(to)) {
            ++to;
        }
        Piece *only = nullptr;
        int pieces = 0;
        for (std::size_t r = 0; r < m_headLines; ++r) {
            for (Piece &piece : m_grid[r].pieces) {
                if (piece.column < to && piece.end() > from) {
                    only = &piece;
                    ++pieces;
                }
            }
        }
        if (pieces == 1 && to - from < columns() && from <= only->column && only->end() <= to) {
            only->column = from;
            only->span = to - from;
        }
        from = to;
    }
}

// A heading that is underlined by a rule spans the columns that the rule spans.
void TextGrid::spanUnderlinedHeads()
{
    const double whole = m_edges.back() - m_edges.front();
    for (GridRow &row : m_grid) {
        for (std::size_t i = 0; i < row.pieces.size(); ++i) {
            Piece &piece = row.pieces[i];
            for (const Rule &rule : m_rules.horizontal) {
                const bool under = rule.y1 > row.box.bottom - thresholds.ruleTolerance &&
                                   rule.y1 < row.box.bottom + thresholds.maxRuleGap * row.size;
                if (!under || rule.length() > thresholds.maxSpanningRule * whole || rule.x1 > piece.box.centreX() ||
                    rule.x2 < piece.box.centreX()) {
                    continue;
                }
                const int first = columnAt(rule.x1 + thresholds.maxRuleOverhang);
                const int last = columnAt(rule.x2 - thresholds.maxRuleOverhang);
                const bool freeLeft = i == 0 || row.pieces[i - 1].end() <= first;
                const bool freeRight = i + 1 == row.pieces.size() || row.pieces[i + 1].column > last;
                if (first <= piece.column && last >= piece.end() - 1 && freeLeft && freeRight) {
                    piece.column = first;
                    piece.span = last - first + 1;
                }
            }
        }
    }
}

// A heading without a rule is over the middle of its columns, each of which has a heading of its own below it. A
// text that lines up with the heading below it is rather the first part of that one.
void TextGrid::spanCentredHeads()
{
    const auto n = static_cast<std::size_t>(columns());
    std::vector<Box> extents(n);
    for (const GridRow &row : m_grid) {
        for (const Piece &piece : row.pieces) {
            if (piece.span == 1) {
                Box &extent = extents[static_cast<std::size_t>(piece.column)];
                extent = united(extent, piece.box);
            }
        }
    }
    for (std::size_t r = 0; r + 1 < m_headLines; ++r) {
        GridRow &row = m_grid[r];
        std::vector<const Piece *> below(n, nullptr);
        for (std::size_t lower = r + 1; lower < m_headLines; ++lower) {
            for (const Piece &piece : m_grid[lower].pieces) {
                const Piece *&first = below[static_cast<std::size_t>(piece.column)];
                first = !first && piece.span == 1 ? &piece : first;
            }
        }
        for (std::size_t i = 0; i < row.pieces.size(); ++i) {
            Piece &piece = row.pieces[i];
            const Piece *child = piece.span == 1 ? below[static_cast<std::size_t>(piece.column)] : nullptr;
            constexpr double same = textLines::thresholds.sameEdge;
            if (child && (std::abs(child->box.left - piece.box.left) <= same ||
                          std::abs(child->box.right - piece.box.right) <= same ||
                          std::abs(child->box.centreX() - piece.box.centreX()) <= same)) {
                continue;
            }
            const int least = i == 0 ? 0 : row.pieces[i - 1].end();
            const int most = i + 1 == row.pieces.size() ? columns() : row.pieces[i + 1].column;
            const auto hasHeads = [&](int from, int to) {
                return std::all_of(below.begin() + from, below.begin() + to, [](const Piece *p) { return p; });
            };
            int bestFrom = piece.column;
            int bestTo = piece.end();
            for (int from = least; from <= piece.column; ++from) {
                for (int to = std::max(piece.end(), from + 2); to <= most; ++to) {
                    const double middle = (extents[static_cast<std::size_t>(from)].left +
                                           extents[static_cast<std::size_t>(to) - 1].right) /
                                          2;
                    if (to - from > bestTo - bestFrom && hasHeads(from, to) &&
                        std::abs(middle - piece.box.centreX()) <= thresholds.maxOffCentre * row.size) {
                        bestFrom = from;
                        bestTo = to;
                    }
                }
            }
            piece.column = bestFrom;
            piece.span = bestTo - bestFrom;
        }
    }
}

// A text that runs over several columns without being a heading of theirs.
bool TextGrid::isText(const GridRow &row) const
{
    return std::any_of(row.pieces.begin(), row.pieces.end(), [](const Piece &piece) {
        return piece.span > 1 && piece.words.size() >= thresholds.minProseWords;
    });
}

// Whether most texts of the first lines line up with others of their column further down. Those above the rule over the
// head are no part of the table otherwise.
bool TextGrid::standInColumns(std::size_t lines) const
{
    constexpr double same = textLines::thresholds.sameEdge;
    std::size_t all = 0;
    std::size_t aligned = 0;
    for (std::size_t i = 0; i < lines; ++i) {
        for (const Piece &piece : m_grid[i].pieces) {
            ++all;
            aligned += std::any_of(
                           m_grid.begin() + static_cast<std::ptrdiff_t>(lines), m_grid.end(),
                           [&piece](const GridRow &row) {
                               return std::any_of(row.pieces.begin(), row.pieces.end(), [&piece](const Piece &other) {
                                   return std::abs(other.box.left - piece.box.left) <= same ||
                                          std::abs(other.box.right - piece.box.right) <= same ||
                                          std::abs(other.box.centreX() - piece.box.centreX()) <= same;
                               });
                           })
                           ? 1
                           : 0;
        }
    }
    return 2 * aligned > all;
}

// Whether the lines from this one to the next rule over the whole table hold no numbers beside the first column.
bool TextGrid::isHeadBetweenRules(std::size_t first) const
{
    for (std::size_t i = first; i + 1 < m_grid.size() && i < first + thresholds.maxTitleLines; ++i) {
        for (const Piece &piece : m_grid[i].pieces) {
            if (piece.column > 0 && isNumber(piece.words)) {
                return false;
            }
        }
        if (m_ruleAfter[i]) {
            return m_grid[i].pieces.size() > 1;
        }
    }
    return false;
}

std::size_t TextGrid::linesBefore() const
{
    std::size_t lines = 0;
    std::size_t words = 0;
    std::size_t divided = 0;
    const bool atLeft = m_grid.front().pieces.front().column == 0; // unlike headings without one of the first column
    while (lines + 1 < m_grid.size() && lines < thresholds.maxTitleLines &&
           m_grid[lines].pieces.size() <= thresholds.maxTitlePieces) {
        for (const Piece &piece : m_grid[lines].pieces) {
            words += piece.words.size();
        }
        divided += m_grid[lines].pieces.size() > 1 ? 1 : 0;
        if (m_ruleAfter[lines++]) {
            if (words >= thresholds.minTitleWords && atLeft && (divided == 0 || !standInColumns(lines))) {
                return lines;
            }
            break;
        }
    }
    for (std::size_t i = 0; i + 2 < m_grid.size(); ++i) {
        if (m_ruleAfter[i] && isHeadBetweenRules(i + 1) && !standInColumns(i + 1)) {
            return i + 1;
        }
    }
    for (lines = 0; lines + 1 < m_grid.size() && isText(m_grid[lines]);) {
        ++lines;
    }
    return lines;
}

std::size_t TextGrid::linesAfter() const
{
    std::size_t lines = 0;
    while (lines + 1 < m_grid.size() && isText(m_grid[m_grid.size() - 1 - lines])) {
        ++lines;
    }
    return lines;
}

std::size_t TextGrid::conflicts(std::size_t from, std::size_t to) const
{
    const auto first = m_grid.begin() + static_cast<std::ptrdiff_t>(std::max(from, m_headLines));
    const auto end = m_grid.begin() + static_cast<std::ptrdiff_t>(std::max(to, m_headLines));
    const std::size_t few = hasNumbers() ? 2 * static_cast<std::size_t>(columns()) / 3 : 0;
    return static_cast<std::size_t>(std::count_if(first, end, [few](const GridRow &row) {
        const bool spans =
            std::any_of(row.pieces.begin(), row.pieces.end(), [](const Piece &piece) { return piece.span > 1; });
        return row.joined || (row.pieces.size() > 1 && (spans || row.pieces.size() <= few));
    }));
}

std::size_t TextGrid::linesOfSeveralTexts() const
{
    return static_cast<std::size_t>(
        std::count_if(m_grid.begin(), m_grid.end(), [](const GridRow &row) { return row.pieces.size() > 1; }));
}

std::size_t TextGrid::textAmongRows() const
{
    const double whole = m_edges.back() - m_edges.front();
    const auto text = std::find_if(m_grid.begin(), m_grid.end(), [whole](const GridRow &row) {
        return std::any_of(row.pieces.begin(), row.pieces.end(), [whole](const Piece &piece) {
            return piece.span > 1 && piece.words.size() >= thresholds.minTextWords &&
                   piece.box.width() >= thresholds.minTextWidth * whole;
        });
    });
    return static_cast<std::size_t>(text - m_grid.begin());
}

// Whether most texts of the first column are numbers of chapters, clauses or entries.
bool TextGrid::isNumberedText() const
{
    static const QRegularExpression number(QStringLiteral("^(?:§ ?)?\\d+(?:\\.\\d+)+\\.?$"));
    std::size_t all = 0;
    std::size_t numbers = 0;
    for (const GridRow &row : m_grid) {
        if (row.pieces.front().column == 0) {
            const QString text = joinedText(row.pieces.front().words);
            ++all;
            numbers += isListMark(text) || number.match(text).hasMatch() ? 1 : 0;
        }
    }
    return 2 * numbers > all;
}

// Whether nearly all lines reach both margins with even blanks between their words. Two words a line say so only if
// sentences go on from line to line.
bool TextGrid::isJustifiedText() const
{
    std::size_t full = 0;
    std::size_t even = 0;
    std::size_t severalBlanks = 0;
    std::size_t lowerCase = 0;
    const double left = m_edges.front() + gridColumns::thresholds.outerMargin;
    const double right = m_edges.back() - gridColumns::thresholds.outerMargin;
    for (const TextLine &line : m_lines) {
        if (line.box.left > left + thresholds.sameMargin || line.box.right < right - thresholds.sameMargin) {
            continue;
        }
        ++full;
        double narrowest = right - left;
        double widest = 0;
        for (std::size_t i = 1; i < line.words.size(); ++i) {
            const double blank = line.words[i]->box.left - line.words[i - 1]->box.right;
            narrowest = std::min(narrowest, blank);
            widest = std::max(widest, blank);
        }
        even +=
            widest - narrowest <= thresholds.evenBlanks && widest <= thresholds.maxJustifiedBlank * line.size ? 1 : 0;
        severalBlanks += line.words.size() > 2 ? 1 : 0;
        lowerCase += line.words.front()->text.front().isLower() ? 1 : 0;
    }
    return static_cast<double>(full) >= thresholds.minJustified * static_cast<double>(m_lines.size()) &&
           static_cast<double>(even) >= thresholds.minJustified * static_cast<double>(full) &&
           (2 * severalBlanks > full || 2 * lowerCase > full);
}

bool TextGrid::isIndex() const
{
    static const QRegularExpression entry(QStringLiteral("^\\D.*[,\\s]\\d+(?:[-–]\\d+)?[.,;]?$"));
    std::vector<std::pair<std::size_t, std::size_t>> counts(static_cast<std::size_t>(columns()));
    for (const GridRow &row : m_grid) {
        for (const Piece &piece : row.pieces) {
            auto &[entries, all] = counts[static_cast<std::size_t>(piece.column)];
            ++all;
            const QString text = joinedText(piece.words, QStringLiteral(" "));
            entries += text.front().isLetter() && entry.match(text).hasMatch() ? 1 : 0;
        }
    }
    return std::all_of(counts.begin(), counts.end(), [](const auto &count) {
        return static_cast<double>(count.first) >= thresholds.minEntries * static_cast<double>(count.second);
    });
}

bool TextGrid::isRuled() const
{
    const double height = m_lines.back().box.bottom - m_lines.front().box.top;
    const auto between = std::count_if(m_rules.vertical.begin(), m_rules.vertical.end(), [&](const Rule &rule) {
        return rule.x1 > m_edges.front() + thresholds.maxRuleOverhang &&
               rule.x1 < m_edges.back() - thresholds.maxRuleOverhang &&
               rule.length() >= thresholds.minFullRule * height;
    });
    const auto rules = std::count(m_ruleAfter.begin(), m_ruleAfter.end(), 1) + (m_ruleBefore ? 1 : 0) + between;
    return static_cast<std::size_t>(rules) >= thresholds.minFullRules;
}

// Whether the table is between rules, with a rule under its head.
bool TextGrid::hasRuledHead() const
{
    return m_ruleBefore && m_headLines > 0 && m_headLines <= thresholds.maxTitleLines && m_ruleAfter[m_headLines - 1] &&
           m_grid[m_headLines - 1].pieces.size() > 1 && m_ruleAfter.back();
}

// Whether gaps across all columns divide rows whose texts wrap in some columns only. Texts in columns of a page have
// their gaps each at other heights.
bool TextGrid::areSetApart() const
{
    const std::vector<std::pair<std::size_t, std::size_t>> rows = groupsSetApart(rowGap());
    std::size_t several = 0;
    std::size_t filled = 0; // with texts in most columns
    for (const auto &[from, to] : rows) {
        if (to - from > thresholds.maxLinesInRow) {
            return false;
        }
        std::vector<char> used(static_cast<std::size_t>(columns()), 0);
        for (std::size_t i = from; i < to; ++i) {
            for (const Piece &piece : m_grid[i].pieces) {
                used[static_cast<std::size_t>(piece.column)] = 1;
            }
        }
        several += to - from > 1 ? 1 : 0;
        filled += 2 * std::count(used.begin(), used.end(), 1) > columns() ? 1 : 0;
    }
    return rows.size() >= thresholds.minTextsSetApart && 2 * several > rows.size() && 2 * filled > rows.size() &&
           wrapInSomeColumns(rows) && !holdsProse();
}

// Whether rules divide rows of several lines, or gaps do below a head with a rule. Columns of text would be long rows.
bool TextGrid::isDivided() const
{
    if (hasRuledHead() || areSetApart()) {
        return true;
    }
    const double gap = m_headLines > 0 && m_ruleAfter[m_headLines - 1] ? rowGap() : 0;
    std::size_t rules = 0;
    std::size_t rows = 1;
    std::size_t linesInRow = 1;
    for (std::size_t i = 1; i < m_grid.size(); ++i) {
        const bool apart = gap > 0 && stepTo(i) >= gap;
        rules += m_ruleAfter[i - 1] ? 1 : 0;
        rows += apart || m_ruleAfter[i - 1] ? 1 : 0;
        linesInRow = apart || m_ruleAfter[i - 1] ? 1 : linesInRow + 1;
        if (linesInRow > thresholds.maxLinesInRow) {
            return false;
        }
    }
    return (rules + 1 >= thresholds.minBands || (gap > 0 && rows - 1 >= thresholds.minRowsSetApart)) &&
           static_cast<double>(m_grid.size()) <= thresholds.maxLinesInBand * static_cast<double>(rows);
}

bool TextGrid::holdsProse() const
{
    for (int column = 0; column < columns(); ++column) {
        std::vector<const Piece *> pieces;
        Box extent;
        std::size_t words = 0;
        for (const GridRow &row : m_grid) {
            for (const Piece &piece : row.pieces) {
                if (piece.column == column && piece.span == 1) {
                    pieces.push_back(&piece);
                    extent = united(extent, piece.box);
                    words += piece.words.size();
                }
            }
        }
        const double end = extent.right - thresholds.maxRagged * extent.width();
        const auto full =
            std::count_if(pieces.begin(), pieces.end(), [end](const Piece *piece) { return piece->box.right >= end; });
        if (pieces.size() >= thresholds.minProseLines &&
            static_cast<double>(words) >= thresholds.minWordsOfProse * static_cast<double>(pieces.size()) &&
            static_cast<double>(full) >= thresholds.minFullLines * static_cast<double>(pieces.size())) {
            return true;
        }
    }
    return false;
}

bool TextGrid::hasNumbers() const
{
    std::size_t besideKeys = 0;
    std::size_t numeric = 0;
    for (const GridRow &row : m_grid) {
        for (const Piece &piece : row.pieces) {
            besideKeys += piece.column > 0 ? 1 : 0;
            numeric += piece.column > 0 && isNumber(piece.words) ? 1 : 0;
        }
    }
    return static_cast<double>(numeric) >= thresholds.someNumeric * static_cast<double>(besideKeys);
}

bool TextGrid::looksLikeTable() const
{
    if (columns() < 2) {
        return false;
    }
    int pieces = 0;
    int besideKeys = 0;
    int numeric = 0;
    int words = 0;
    int multi = 0;
    std::vector<std::vector<const Piece *>> byColumn(static_cast<std::size_t>(columns()));
    for (const GridRow &row : m_grid) {
        multi += row.pieces.size() >= 2 ? 1 : 0;
        for (const Piece &piece : row.pieces) {
            ++pieces;
            besideKeys += piece.column > 0 ? 1 : 0;
            numeric += piece.column > 0 && isNumber(piece.words) ? 1 : 0;
            words += static_cast<int>(piece.words.size());
            if (piece.span == 1) {
                byColumn[static_cast<std::size_t>(piece.column)].push_back(&piece);
            }
        }
    }
    double aligned = 0;
    double counted = 0;
    for (const auto &column : byColumn) {
        std::vector<double> lefts;
        std::vector<double> rights;
        std::vector<double> centres;
        for (const Piece *piece : column) {
            lefts.push_back(piece->box.left);
            rights.push_back(piece->box.right);
            centres.push_back(piece->box.centreX());
        }
        const double best = std::max({alignedShare(lefts), alignedShare(rights), alignedShare(centres)});
        aligned += best * static_cast<double>(column.size());
        counted += static_cast<double>(column.size());
    }
    aligned /= std::max(1.0, counted);
    const double numericShare = static_cast<double>(numeric) / std::max(1, besideKeys);
    const double wordsInPiece = static_cast<double>(words) / pieces;
    const double filled = static_cast<double>(pieces) / static_cast<double>(m_grid.size()) / columns();
    const double maxWords = isDivided() ? thresholds.maxWordsOfDivided : thresholds.maxWords;
    const bool sparse = wordsInPiece <= thresholds.maxWordsOfMarks && aligned >= thresholds.minAlignedOfMarks;
    const double minFilled = isRuled() && sparse ? thresholds.minFilledOfMarks : thresholds.minFilled;
    if (wordsInPiece > maxWords || filled < minFilled || aligned < thresholds.minAligned) {
        return false;
    }
    std::vector<double> gaps;
    for (const GridRow &row : m_grid) {
        for (std::size_t i = 1; i < row.pieces.size(); ++i) {
            gaps.push_back((row.pieces[i].box.left - row.pieces[i - 1].box.right) / row.size);
        }
    }
    const double gap = median(std::move(gaps));
    if (numericShare < thresholds.someNumeric && (isJustifiedText() || (isRuled() && holdsProse() && !isDivided()))) {
        return false;
    }
    const double maxWordsOfText = isDivided() ? maxWords : thresholds.maxWordsOfText;
    if (isRuled() &&
        (numericShare >= thresholds.minNumeric || (wordsInPiece <= maxWordsOfText && gap >= thresholds.minGapOfText))) {
        return multi >= (numericShare >= thresholds.minNumeric ? thresholds.minRowsOfNumbers : thresholds.minRows);
    }
    if (numericShare >= thresholds.mostlyNumeric && columns() >= thresholds.minColumnsOfNumbers) {
        return multi >= thresholds.minRowsOfNumbers;
    }
    if (columns() == 2 && isNumberedText()) {
        return false;
    }
    if (numericShare >= thresholds.minNumeric) {
        return multi >= thresholds.minRows;
    }
    const auto typed = std::count_if(
        m_lines.begin(), m_lines.end(), [](const TextLine &line) { return line.words.front()->style.fixedPitch; });
    const bool listing = 2 * static_cast<std::size_t>(typed) > m_lines.size();
    return multi >= thresholds.minRowsOfText && !listing && gap >= thresholds.minGapOfText &&
           wordsInPiece <= thresholds.maxWordsOfText && aligned >= thresholds.minAlignedOfText &&
           (sparse || filled >= thresholds.minFilledOfText);
}

} // namespace quorra::model
