// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/model/column_alignment.h"

#include "engine/model/build.h"
#include "engine/model/rows.h"

#include <cmath>
#include <vector>

namespace quorra::model {

namespace {

constexpr double sameEdge = 2.5; // points
constexpr std::size_t fewest = 3;

double leftOf(const Box &box)
{
    return box.left;
}

double rightOf(const Box &box)
{
    return box.right;
}

double centreOf(const Box &box)
{
    return box.centreX();
}

struct Edge
{
    Alignment alignment;
    double (*of)(const Box &);
};

// In the order of preference when several agree equally.
constexpr Edge textEdges[] = {{Alignment::Left, leftOf}, {Alignment::Centre, centreOf}, {Alignment::Right, rightOf}};
constexpr Edge numberEdges[] = {{Alignment::Right, rightOf}, {Alignment::Centre, centreOf}, {Alignment::Left, leftOf}};

using Texts = std::vector<Paragraph *>;

double usual(const Texts &texts, const Edge &edge)
{
    std::vector<double> values;
    values.reserve(texts.size());
    for (const Paragraph *text : texts) {
        values.push_back(edge.of(text->box));
    }
    return median(std::move(values));
}

bool standsAt(const Paragraph &text, const Edge &edge, double place)
{
    return std::abs(edge.of(text.box) - place) <= sameEdge;
}

void align(const Texts &texts, const Edge (&edges)[3])
{
    if (texts.size() < fewest) {
        return;
    }
    std::size_t most = texts.size() * 7 / 10;
    const Edge *best = nullptr;
    for (const Edge &edge : edges) {
        const double place = usual(texts, edge);
        std::size_t count = 0;
        for (const Paragraph *text : texts) {
            count += standsAt(*text, edge, place) ? 1 : 0;
        }
        if (count > most) {
            most = count;
            best = &edge;
        }
    }
    if (!best) {
        return;
    }
    const double place = usual(texts, *best);
    for (Paragraph *text : texts) {
        if (standsAt(*text, *best, place)) {
            text->alignment = best->alignment;
        }
    }
}

} // namespace

void alignColumns(Table &table)
{
    const auto columns = static_cast<std::size_t>(table.columns());
    std::vector<Texts> numbers(columns);
    std::vector<Texts> others(columns);
    for (Cell &cell : table.cells) {
        const bool single = cell.columnSpan == 1 && cell.row >= table.headerRows && cell.paragraphs.size() == 1 &&
                            cell.column >= 0 && static_cast<std::size_t>(cell.column) < columns;
        if (!single) {
            continue;
        }
        Paragraph &text = cell.paragraphs.front();
        if (text.lines.size() == 1 && !text.rightToLeft && text.rotation == 0) {
            auto &kind = looksNumeric(plainText(text.runs)) ? numbers : others;
            kind[static_cast<std::size_t>(cell.column)].push_back(&text);
        }
    }
    for (std::size_t column = 0; column < columns; ++column) {
        align(numbers[column], numberEdges);
        align(others[column], textEdges);
    }
}

} // namespace quorra::model
