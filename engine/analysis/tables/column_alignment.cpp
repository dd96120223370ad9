// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/column_alignment.h"

#include "base/number.h"
#include "document/text.h"
#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quorra::model {

namespace {

using columnAlignment::thresholds;
constexpr double sameEdge = textLines::thresholds.sameEdge;

// The largest share of values that are close together, and the middle of those.
struct Cluster
{
    double share = 0;
    double middle = 0;
};

Cluster largestCluster(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    Cluster best;
    for (std::size_t from = 0, to = 0; from < values.size(); ++from) {
        while (to < values.size() && values[to] - values[from] <= sameEdge) {
            ++to;
        }
        const double share = static_cast<double>(to - from) / static_cast<double>(values.size());
        if (share > best.share) {
            best = {share, (values[from] + values[to - 1]) / 2};
        }
    }
    return best;
}

double sideOf(const Paragraph &paragraph, Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return paragraph.box.centreX();
    case Alignment::Right:
        return paragraph.box.right;
    default:
        return paragraph.box.left;
    }
}

bool isSingleLine(const Cell &cell)
{
    return cell.columnSpan == 1 && cell.paragraphs.size() == 1 && cell.paragraphs.front().lines.size() == 1 &&
           cell.paragraphs.front().rotation == 0 && !cell.paragraphs.front().rightToLeft;
}

bool areNumbers(const std::vector<Paragraph *> &texts)
{
    const auto numbers =
        std::count_if(texts.begin(), texts.end(), [](const Paragraph *text) { return looksNumeric(plainText(*text)); });
    return 2 * static_cast<std::size_t>(numbers) > texts.size();
}

// What the texts of a column have in common says more than the space around each of them: in a table without lines, the
// cells' sides lie somewhere between two columns.
void alignColumn(std::vector<Paragraph *> &texts, std::size_t headers, bool ruled, bool first)
{
    if (texts.size() < thresholds.minTexts) {
        return;
    }
    Alignment alignment = Alignment::Left;
    Cluster best;
    double second = 0;
    Cluster right;
    for (const Alignment each : {Alignment::Left, Alignment::Right, Alignment::Centre}) {
        std::vector<double> sides;
        sides.reserve(texts.size());
        for (const Paragraph *text : texts) {
            sides.push_back(sideOf(*text, each));
        }
        const Cluster cluster = largestCluster(std::move(sides));
        right = each == Alignment::Right ? cluster : right;
        if (cluster.share > best.share) {
            second = best.share;
            best = cluster;
            alignment = each;
        } else {
            second = std::max(second, cluster.share);
        }
    }
    if (best.share < thresholds.minShare) {
        return;
    }
    if (best.share < second + thresholds.minLead) {
        // Texts of one width agree in every edge. In a ruled table their distance from the lines shows the alignment.
        // Without rules, numbers are right-aligned, except the keys in the first column.
        if (ruled) {
            return;
        }
        if (!first && areNumbers(texts) && right.share >= best.share - thresholds.minLead) {
            alignment = Alignment::Right;
            best = right;
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const bool there = std::abs(sideOf(*texts[i], alignment) - best.middle) <= sameEdge;
        if (there || (i >= headers && texts[i]->alignment != Alignment::Justify)) {
            texts[i]->alignment = alignment;
        }
    }
}

} // namespace

void alignColumns(Table &table)
{
    for (int column = 0; column < table.columns(); ++column) {
        std::vector<Paragraph *> texts;
        std::size_t headers = 0;
        for (Cell &cell : table.cells) {
            if (cell.column == column && isSingleLine(cell)) {
                texts.push_back(&cell.paragraphs.front());
                headers += cell.row < table.headerRows ? 1 : 0;
            }
        }
        alignColumn(texts, headers, table.ruled, column == 0);
    }
}

} // namespace quorra::model
