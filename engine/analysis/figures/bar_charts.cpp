// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/bar_charts.h"

#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

struct Thresholds
{
    double minThickness = 3;       ///< points; thinner fills are rules
    double sameEdge = 1;           ///< points; bars whose ends differ by less are on one line
    double sameThickness = 1;      ///< points; bars of one chart differ by less
    std::size_t minBars = 3;       ///< of one thickness on one line
    double minLengthRatio = 1.1;   ///< of the longest bar's length to the shortest; equal bars are rows of a table
    std::size_t maxWords = 2;      ///< in a bar, its value; more text makes the fill a background
    double maxLabelDistance = 1.5; ///< em from the line to the labels below it
    double labelDescent = 0.25;    ///< em from the labels' baseline to the chart's lower edge
    double minLabelGap = 1;        ///< em between the labels of two bars
};

constexpr Thresholds thresholds;

// A bar along its length, from its base line to its free end.
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
    return static_cast<std::size_t>(words) > thresholds.maxWords;
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
    return most->length > thresholds.minLengthRatio * least->length + thresholds.sameEdge;
}

// Whether no bars overlap; those that do are shadows and frames.
bool areApart(const std::vector<Bar> &bars)
{
    for (std::size_t i = 0; i < bars.size(); ++i) {
        for (std::size_t k = i + 1; k < bars.size(); ++k) {
            const Box common = intersected(bars[i].box, bars[k].box);
            if (common.width() > thresholds.sameEdge && common.height() > thresholds.sameEdge) {
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
            body.centreY() > chart.bottom &&
            body.bottom - chart.bottom < thresholds.maxLabelDistance * word.style.size) {
            below.push_back(&word);
        }
    }
    Box all = chart;
    for (const TextLine &line : textLinesOf(std::move(below))) {
        if (segmentsOf(line, thresholds.minLabelGap).size() >= 2) {
            all = united(all, line.box);
            all.bottom = std::max(all.bottom, line.baseline + thresholds.labelDescent * line.size); // descenders
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
            if (!used[k] && std::abs(bars[k].foot - bars[i].foot) <= thresholds.sameEdge &&
                std::abs(bars[k].thickness - bars[i].thickness) <= thresholds.sameThickness) {
                group.push_back(bars[k]);
                used[k] = k != i;
            }
        }
        if (group.size() < thresholds.minBars || !haveUnequalLengths(group) || !areApart(group)) {
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
    std::vector<Box> boxes;
    for (const Fill &fill : page.fills) {
        if (fill.colour != white && fill.box.width() >= thresholds.minThickness &&
            fill.box.height() >= thresholds.minThickness && !isTaken(fill.box, taken) && !holdsText(page, fill.box)) {
            boxes.push_back(fill.box);
        }
    }
    std::vector<Box> charts;
    if (boxes.size() >= thresholds.minBars) {
        addCharts(charts, page, barsOf(boxes, true), true);
        addCharts(charts, page, barsOf(boxes, false), false);
    }
    return charts;
}

} // namespace quorra::model
