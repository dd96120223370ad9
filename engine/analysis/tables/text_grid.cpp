// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/text_grid.h"

#include "base/number.h"

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

} // namespace

TextGrid::TextGrid(std::vector<TextLine> lines, const std::vector<Rule> &horizontal) : m_lines(std::move(lines))
{
    const double top = m_lines.front().box.top - m_lines.front().size;
    const double bottom = m_lines.back().box.bottom + m_lines.back().size;
    for (const Rule &rule : horizontal) {
        if (rule.y1 >= top && rule.y1 <= bottom) {
            m_rules.push_back(rule);
        }
    }
    findColumns();
    fillRows();
    if (columns() > 1) {
        spanHeadings();
        joinTitle();
    }
}

void TextGrid::findColumns()
{
    Box area;
    for (const TextLine &line : m_lines) {
        area = united(area, line.box);
    }
    std::vector<int> cover( // lines with text at each point from the left on
        static_cast<std::size_t>(std::ceil(area.width())) + 2, 0);
    int multi = 0;
    for (const TextLine &line : m_lines) {
        const std::vector<Segment> segments = segmentsOf(line, thresholds.minCellGap);
        if (segments.size() < 2) {
            continue;
        }
        ++multi;
        for (const Segment &segment : segments) {
            const auto from = static_cast<std::size_t>(std::max(0.0, segment.box.left - area.left));
            const auto to = static_cast<std::size_t>(std::max(0.0, segment.box.right - area.left));
            for (std::size_t i = from; i <= std::min(to, cover.size() - 1); ++i) {
                ++cover[i];
            }
        }
    }
    const int crossing = multi >= thresholds.minLinesForShare         ? static_cast<int>(thresholds.maxCrossing * multi)
                         : multi >= thresholds.minLinesForOneCrossing ? 1
                                                                      : 0;
    m_edges = {area.left - thresholds.outerMargin};
    bool textBefore = false;
    for (std::size_t i = 0; i < cover.size();) {
        if (cover[i] > crossing) {
            textBefore = true;
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < cover.size() && cover[end] <= crossing) {
            ++end;
        }
        const bool wide = static_cast<double>(end - i) >= thresholds.minColumnGap * m_lines.front().size;
        if (textBefore && end < cover.size() && wide) {
            const int least = *std::min_element(
                cover.begin() + static_cast<std::ptrdiff_t>(i), cover.begin() + static_cast<std::ptrdiff_t>(end));
            double sum = 0;
            double n = 0;
            for (std::size_t k = i; k < end; ++k) {
                sum += cover[k] == least ? static_cast<double>(k) + 0.5 : 0;
                n += cover[k] == least ? 1 : 0;
            }
            m_edges.push_back(area.left + sum / n);
        }
        i = end;
    }
    m_edges.push_back(area.right + thresholds.outerMargin);
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
    if (looksNumeric(last.text) && looksNumeric(word.text) &&
        columnAt(body.centreX()) > columnAt(bodyOf(last).centreX())) {
        return true;
    }
    return body.left - piece.box.right >= thresholds.minPieceGap * word.style.size &&
           columnAt(body.left) > columnAt(piece.box.right - thresholds.edgeTolerance);
}

void TextGrid::addPiece(GridRow &row, const Segment &segment) const
{
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
        }
        Piece *last = row.pieces.empty() ? nullptr : &row.pieces.back();
        if (last && last->column + last->span > piece.column) { // both reach into the column: one cell
            last->words.insert(last->words.end(), piece.words.begin(), piece.words.end());
            last->box = united(last->box, piece.box);
            last->span = std::max(last->span, piece.column + piece.span - last->column);
        } else {
            row.pieces.push_back(piece);
        }
    }
}

void TextGrid::fillRows()
{
    for (const TextLine &line : m_lines) {
        GridRow row;
        row.box = line.box;
        row.baseline = line.baseline;
        row.size = line.size;
        for (const Segment &segment : segmentsOf(line, thresholds.minCellGap)) {
            addPiece(row, segment);
        }
        m_grid.push_back(std::move(row));
    }
}

// A heading that is underlined by a rule spans the columns that the rule spans.
void TextGrid::spanHeadings()
{
    const double whole = m_edges.back() - m_edges.front();
    for (GridRow &row : m_grid) {
        for (std::size_t i = 0; i < row.pieces.size(); ++i) {
            Piece &piece = row.pieces[i];
            for (const Rule &rule : m_rules) {
                const bool under = rule.y1 > row.box.bottom - thresholds.ruleTolerance &&
                                   rule.y1 < row.box.bottom + thresholds.maxRuleGap * row.size;
                if (!under || rule.length() > thresholds.maxSpanningRule * whole || rule.x1 > piece.box.centreX() ||
                    rule.x2 < piece.box.centreX()) {
                    continue;
                }
                const int first = columnAt(rule.x1 + thresholds.maxRuleOverhang);
                const int last = columnAt(rule.x2 - thresholds.maxRuleOverhang);
                const bool freeLeft = i == 0 || row.pieces[i - 1].column + row.pieces[i - 1].span <= first;
                const bool freeRight = i + 1 == row.pieces.size() || row.pieces[i + 1].column > last;
                if (first <= piece.column && last >= piece.column + piece.span - 1 && freeLeft && freeRight) {
                    piece.column = first;
                    piece.span = last - first + 1;
                }
            }
        }
    }
}

// Joins the text lines above the rule that opens the table: its title, one cell over all columns.
void TextGrid::joinTitle()
{
    const double whole = m_edges.back() - m_edges.front();
    std::size_t lines = 0;
    std::size_t words = 0;
    const auto opens = [&](const Rule &rule, const GridRow &row) {
        return rule.length() > thresholds.minFullRule * whole && rule.y1 > row.box.centreY();
    };
    const auto isAbove = [&](const GridRow &row) {
        return std::any_of(m_rules.begin(), m_rules.end(), [&](const Rule &rule) {
            return opens(rule, row) && rule.y1 < m_grid.back().box.top && !opens(rule, m_grid[lines]);
        });
    };
    while (lines + 1 < m_grid.size() && lines < thresholds.maxTitleLines &&
           m_grid[lines].pieces.size() <= thresholds.maxTitlePieces) {
        for (const Piece &piece : m_grid[lines].pieces) {
            words += piece.words.size();
        }
        ++lines;
        if (isAbove(m_grid[lines - 1])) {
            break;
        }
    }
    if (lines == 0 || words < thresholds.minTitleWords || !isAbove(m_grid[lines - 1])) {
        return;
    }
    GridRow title = m_grid.front();
    Piece all;
    for (std::size_t i = 0; i < lines; ++i) {
        for (const Piece &piece : m_grid[i].pieces) {
            all.words.insert(all.words.end(), piece.words.begin(), piece.words.end());
            all.box = united(all.box, piece.box);
        }
        title.box = united(title.box, m_grid[i].box);
        title.baseline = m_grid[i].baseline;
    }
    all.span = columns();
    title.pieces = {all};
    m_grid.erase(m_grid.begin(), m_grid.begin() + static_cast<std::ptrdiff_t>(lines) - 1);
    m_grid.front() = title;
    m_hasTitle = true;
}

bool TextGrid::looksLikeTable() const
{
    if (columns() < 2) {
        return false;
    }
    int pieces = 0;
    int numeric = 0;
    int words = 0;
    int multi = 0;
    std::vector<std::vector<const Piece *>> byColumn(static_cast<std::size_t>(columns()));
    for (const GridRow &row : m_grid) {
        multi += row.pieces.size() >= 2 ? 1 : 0;
        for (const Piece &piece : row.pieces) {
            ++pieces;
            numeric += looksNumeric(joinedText(piece.words, QStringLiteral(" "))) ? 1 : 0;
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
    const double numericShare = static_cast<double>(numeric) / pieces;
    const double wordsInPiece = static_cast<double>(words) / pieces;
    const double filled = static_cast<double>(pieces) / static_cast<double>(m_grid.size()) / columns();
    if (wordsInPiece > thresholds.maxWords || filled < thresholds.minFilled || aligned < thresholds.minAligned) {
        return false;
    }
    if (numericShare >= thresholds.mostlyNumeric && columns() >= thresholds.minColumnsOfNumbers) {
        return multi >= thresholds.minRowsOfNumbers;
    }
    if (numericShare >= thresholds.minNumeric) {
        return multi >= thresholds.minRows;
    }
    return multi >= thresholds.minRows && wordsInPiece <= thresholds.maxWordsOfText &&
           aligned >= thresholds.minAlignedOfText && filled >= thresholds.minFilledOfText;
}

} // namespace quorra::model
