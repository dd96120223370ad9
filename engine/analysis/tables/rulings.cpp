// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/rulings.h"

#include <algorithm>

namespace quorra::model {

namespace {

using rulings::thresholds;

bool isInvisible(Colour colour, Colour least = thresholds.nearlyWhite)
{
    return (colour >> 16U & 0xffU) >= least && (colour >> 8U & 0xffU) >= least && (colour & 0xffU) >= least;
}

// Whether the middle of the rule is on or at the edge of a coloured area.
bool isOnFill(const Rule &rule, const std::vector<Fill> &fills)
{
    const double x = (rule.x1 + rule.x2) / 2;
    const double y = (rule.y1 + rule.y2) / 2;
    constexpr double reach = thresholds.fillReach;
    return std::any_of(fills.begin(), fills.end(), [&](const Fill &fill) {
        const Box &box = fill.box;
        return !isInvisible(fill.colour, thresholds.whiteFill) &&
               Box{box.left - reach, box.top - reach, box.right + reach, box.bottom + reach}.contains(x, y);
    });
}

// Whether the rule is as long as thick: a dot of a dotted line, whose direction only its neighbours show.
bool isDot(const Rule &rule)
{
    return rule.length() <= thresholds.maxDotRatio * rule.width;
}

// A rule seen along its direction, whichever that is.
struct Span
{
    double across;
    double from;
    double to;
    double width;
    Colour colour;
};

std::vector<Span> mergeSpans(std::vector<Span> spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) {
        return a.across != b.across ? a.across < b.across : a.from < b.from;
    });
    std::vector<Span> merged;
    for (std::size_t start = 0; start < spans.size();) {
        std::size_t end = start + 1;
        while (end < spans.size() && spans[end].across - spans[start].across <= thresholds.sameLine) {
            ++end;
        }
        const auto first = spans.begin() + static_cast<std::ptrdiff_t>(start);
        const auto last = spans.begin() + static_cast<std::ptrdiff_t>(end);
        std::sort(first, last, [](const Span &a, const Span &b) { return a.from < b.from; });
        std::size_t current = merged.size();
        double longest = 0; // piece of the line: its colour is the line's
        for (auto it = first; it != last; ++it) {
            if (current < merged.size() && it->from <= merged[current].to + thresholds.maxDashGap) {
                merged[current].to = std::max(merged[current].to, it->to);
                merged[current].width = std::max(merged[current].width, it->width);
                if (it->to - it->from > longest) {
                    merged[current].colour = it->colour;
                }
            } else {
                current = merged.size();
                merged.push_back(*it);
                longest = 0;
            }
            longest = std::max(longest, it->to - it->from);
        }
        start = end;
    }
    return merged;
}

} // namespace

Rulings mergeRules(const std::vector<Rule> &rules, const std::vector<Fill> &fills)
{
    std::vector<Span> horizontal;
    std::vector<Span> vertical;
    for (const Rule &rule : rules) {
        if (isInvisible(rule.colour) && !isOnFill(rule, fills)) {
            continue;
        }
        if (rule.isHorizontal()) {
            horizontal.push_back({rule.y1, rule.x1, rule.x2, rule.width, rule.colour});
        } else {
            vertical.push_back({rule.x1, rule.y1, rule.y2, rule.width, rule.colour});
        }
        if (isDot(rule)) {
            const double half = rule.width / 2;
            const double x = (rule.x1 + rule.x2) / 2;
            const double y = (rule.y1 + rule.y2) / 2;
            if (rule.isHorizontal()) {
                vertical.push_back({x, y - half, y + half, rule.length(), rule.colour});
            } else {
                horizontal.push_back({y, x - half, x + half, rule.length(), rule.colour});
            }
        }
    }
    Rulings merged;
    for (const Span &s : mergeSpans(std::move(horizontal))) {
        if (s.to - s.from >= thresholds.minLength) {
            merged.horizontal.push_back({s.from, s.across, s.to, s.across, s.width, s.colour});
        }
    }
    for (const Span &s : mergeSpans(std::move(vertical))) {
        if (s.to - s.from >= thresholds.minLength) {
            merged.vertical.push_back({s.across, s.from, s.across, s.to, s.width, s.colour});
        }
    }
    return merged;
}

Rulings withFillEdges(Rulings rulings, const std::vector<Fill> &fills)
{
    for (const Fill &fill : fills) {
        const Box &box = fill.box;
        if (isInvisible(fill.colour, thresholds.whiteFill) ||
            std::min(box.width(), box.height()) < thresholds.minFillSide) {
            continue;
        }
        for (const double y : {box.top, box.bottom}) {
            rulings.horizontal.push_back({box.left, y, box.right, y, 0, fill.colour});
        }
        for (const double x : {box.left, box.right}) {
            rulings.vertical.push_back({x, box.top, x, box.bottom, 0, fill.colour});
        }
    }
    return rulings;
}

std::vector<double> clusteredPositions(std::vector<double> values, double tolerance)
{
    std::sort(values.begin(), values.end());
    std::vector<double> means;
    for (std::size_t start = 0; start < values.size();) {
        std::size_t end = start;
        double sum = 0;
        while (end < values.size() && (end == start || values[end] - values[end - 1] <= tolerance)) {
            sum += values[end++];
        }
        means.push_back(sum / static_cast<double>(end - start));
        start = end;
    }
    return means;
}

} // namespace quorra::model
