// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/bar_charts.h"

#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr double sameEdge = 1;      // points
constexpr double sameThickness = 1; // points
constexpr std::size_t fewestBars = 3;
constexpr std::size_t mostWords = 2; // in a bar: its value
constexpr double reach = 1.5;        // font sizes from the line to the labels below it

// A bar seen along its length: from the line it stands on to its free end.
struct Bar
{
    Box box;
    double foot = 0;
    double length = 0;
    double thickness = 0;
};

bool isTaken(const Box &box, const std::vector<Box> &taken)
{
    return std::any_of(
        taken.begin(), taken.end(), [&box](const Box &t) { return t.contains(box.centreX(), box.centreY()); });
}

bool holdsText(const RawPage &page, const Box &box)
{
    const auto words = std::count_if(page.words.begin(), page.words.end(), [&box](const RawWord &word) {
        return box.contains(word.box.centreX(), word.box.centreY());
    });
    return static_cast<std::size_t>(words) > mostWords;
}

std::vector<Bar> barsOf(const std::vector<Box> &boxes, bool upright)
{
    std::vector<Bar> bars;
    bars.reserve(boxes.size());
    for (const Box &box : boxes) {
        bars.push_back(
            upright ? Bar{box, box.bottom, box.height(), box.width()} : Bar{box, box.left, box.width(), box.height()});
    }
    return bars;
}

bool haveUnequalLengths(const std::vector<Bar> &bars)
{
    const auto [least, most] =
        std::minmax_element(bars.begin(), bars.end(), [](const Bar &a, const Bar &b) { return a.length < b.length; });
    constexpr double clearly = 1.1;
    return most->length > clearly * least->length + sameEdge;
}

// Bars that lie on one another are shadows and frames, no chart.
bool areApart(const std::vector<Bar> &bars)
{
    for (std::size_t i = 0; i < bars.size(); ++i) {
        for (std::size_t k = i + 1; k < bars.size(); ++k) {
            const Box common = intersected(bars[i].box, bars[k].box);
            if (common.width() > sameEdge && common.height() > sameEdge) {
                return false;
            }
        }
    }
    return true;
}

// The chart with what is written along the line below upright bars: several short texts side by side.
Box withLabels(const RawPage &page, const Box &chart)
{
    WordRefs below;
    for (const RawWord &word : page.words) {
        const Box body = bodyOf(word);
        if (word.rotation == 0 && chart.left < body.centreX() && body.centreX() < chart.right &&
            body.centreY() > chart.bottom && body.bottom - chart.bottom < reach * word.style.size) {
            below.push_back(&word);
        }
    }
    Box all = chart;
    for (const TextLine &row : textLinesOf(std::move(below))) {
        if (segmentsOf(row, 1).size() >= 2) {
            all = united(all, row.box);
            all.bottom = std::max(all.bottom, row.baseline + 0.25 * row.size); // descenders
        }
    }
    return all;
}

void addCharts(std::vector<Box> &charts, const RawPage &page, const std::vector<Bar> &bars, bool upright)
{
    std::vector<bool> used(bars.size());
    for (std::size_t i = 0; i < bars.size(); ++i) {
        std::vector<Bar> group;
        for (std::size_t k = i; k < bars.size() && !used[i]; ++k) {
            if (!used[k] && std::abs(bars[k].foot - bars[i].foot) <= sameEdge &&
                std::abs(bars[k].thickness - bars[i].thickness) <= sameThickness) {
                group.push_back(bars[k]);
                used[k] = k != i;
            }
        }
        if (group.size() < fewestBars || !haveUnequalLengths(group) || !areApart(group)) {
            continue;
        }
        Box chart;
        for (const Bar &bar : group) {
            chart = united(chart, bar.box);
        }
        charts.push_back(upright ? withLabels(page, chart) : chart);
    }
}

} // namespace

std::vector<Box> findBarCharts(const RawPage &page, const std::vector<Box> &taken)
{
    constexpr double thinnest = 3; // points: thinner ones are rules
    std::vector<Box> boxes;
    for (const Fill &fill : page.fills) {
        if (fill.colour != white && fill.box.width() >= thinnest && fill.box.height() >= thinnest &&
            !isTaken(fill.box, taken) && !holdsText(page, fill.box)) {
            boxes.push_back(fill.box);
        }
    }
    std::vector<Box> charts;
    if (boxes.size() >= fewestBars) {
        addCharts(charts, page, barsOf(boxes, true), true);
        addCharts(charts, page, barsOf(boxes, false), false);
    }
    return charts;
}

} // namespace quorra::model
