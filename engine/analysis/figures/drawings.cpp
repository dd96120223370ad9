// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/drawings.h"

#include "figures/bar_charts.h"

#include <algorithm>

namespace quorra::model {

namespace {

struct Thresholds
{
    double maxGap = 9;            ///< points between parts of one drawing
    double minSide = 28;          ///< points; a smaller region is a bullet or an ornament
    double maxArea = 0.8;         ///< share of the page; larger marks are its background
    double lineMargin = 1;        ///< points added around a drawing; half a line's width is outside of its box
    int minMarks = 3;             ///< curves and slanted lines in a drawing
    double seam = 1;              ///< points; rules whose ends are closer touch
    std::size_t maxRules = 1000;  ///< more are a plan or a map, whose parts are close to one another anyway
    double maxRuleLength = 0.6;   ///< share of the page's longer side; longer rules divide the page
    std::ptrdiff_t maxWords = 30; ///< in a drawing of few marks; more make it framed text
    double minDrawn = 0.25;       ///< share of a region with much text that its marks cover
};

constexpr Thresholds thresholds;

struct Region
{
    Box box;
    int ink = 0;
};

bool close(const Box &a, const Box &b)
{
    return a.left - thresholds.maxGap <= b.right && b.left - thresholds.maxGap <= a.right &&
           a.top - thresholds.maxGap <= b.bottom && b.top - thresholds.maxGap <= a.bottom;
}

// Joins regions until no two are close to each other. Neighbouring parts usually follow one another, so that few
// regions remain after the first pass.
std::vector<Region> joined(const std::vector<Region> &parts)
{
    std::vector<Region> regions;
    for (const Region &part : parts) {
        Region grown = part;
        for (std::size_t i = regions.size(); i-- > 0;) {
            if (close(regions[i].box, grown.box)) {
                grown.box = united(grown.box, regions[i].box);
                grown.ink += regions[i].ink;
                regions.erase(regions.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        regions.push_back(grown);
    }
    return regions.size() == parts.size() ? regions : joined(regions);
}

bool touch(const Box &a, const Box &b)
{
    return a.left - thresholds.seam <= b.right && b.left - thresholds.seam <= a.right &&
           a.top - thresholds.seam <= b.bottom && b.top - thresholds.seam <= a.bottom;
}

// The boxes around rules that touch one another, so that a frame belongs to a drawing as a whole or not at all. Very
// long rules are left out; where connected rules extend as far together, each counts by itself.
std::vector<Box> connectedRules(const RawPage &page)
{
    const double longest = thresholds.maxRuleLength * std::max(page.width, page.height);
    std::vector<Box> rules;
    for (const Rule &rule : page.rules) {
        if (rule.length() < longest) {
            rules.push_back({rule.x1, rule.y1, rule.x2, rule.y2});
        }
    }
    if (rules.size() > thresholds.maxRules) {
        return rules;
    }
    std::vector<Box> found;
    std::vector<bool> seen(rules.size());
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (seen[i]) {
            continue;
        }
        seen[i] = true;
        std::vector<Box> network{rules[i]};
        Box around = rules[i];
        for (std::size_t at = 0; at < network.size(); ++at) { // grows while rules are found
            for (std::size_t k = i + 1; k < rules.size(); ++k) {
                if (!seen[k] && touch(network[at], rules[k])) {
                    seen[k] = true;
                    around = united(around, rules[k]);
                    network.push_back(rules[k]);
                }
            }
        }
        if (around.width() < longest && around.height() < longest) {
            found.push_back(around);
        } else {
            found.insert(found.end(), network.begin(), network.end());
        }
    }
    return found;
}

bool isTaken(const Box &box, const std::vector<Box> &taken)
{
    return std::any_of(
        taken.begin(), taken.end(), [&box](const Box &t) { return t.contains(box.centreX(), box.centreY()); });
}

double area(const Box &box)
{
    return box.width() * box.height();
}

// Whether the region has much text and few marks: its rules and fills extend far beyond what is drawn.
bool isFramedText(const RawPage &page, const Box &region, const std::vector<Region> &strokes)
{
    double drawn = 0;
    for (const Region &stroke : strokes) {
        drawn += area(intersected(stroke.box, region));
    }
    const auto words = std::count_if(page.words.begin(), page.words.end(), [&region](const RawWord &word) {
        return region.contains(word.box.centreX(), word.box.centreY());
    });
    return words > thresholds.maxWords && drawn < thresholds.minDrawn * area(region);
}

} // namespace

std::vector<Box> findDrawings(const RawPage &page, const std::vector<Box> &taken)
{
    const std::vector<Box> charts = findBarCharts(page, taken);
    if (page.ink.empty() && charts.empty()) {
        return {};
    }
    const double pageArea = page.width * page.height;
    const auto isBackground = [&](const Box &b) {
        return b.width() * b.height() > thresholds.maxArea * pageArea || isTaken(b, taken);
    };
    std::vector<Region> strokes;
    for (const Ink &ink : page.ink) {
        if (!isBackground(ink.box)) {
            strokes.push_back({ink.box, 1});
        }
    }
    for (const Box &chart : charts) {
        if (!isBackground(chart)) {
            strokes.push_back({chart, thresholds.minMarks});
        }
    }
    strokes = joined(strokes);
    std::vector<Region> parts = strokes;
    const auto addNear = [&](const Box &box) {
        if (!isBackground(box) &&
            std::any_of(strokes.begin(), strokes.end(), [&](const Region &r) { return close(r.box, box); })) {
            parts.push_back({box, 0});
        }
    };
    for (const Box &frame : connectedRules(page)) {
        addNear(frame);
    }
    for (const Fill &fill : page.fills) {
        addNear(fill.box);
    }
    std::vector<Box> drawings;
    const auto keep = [&](const Region &region) {
        const bool large = region.box.width() >= thresholds.minSide && region.box.height() >= thresholds.minSide;
        if (large && region.ink >= thresholds.minMarks && !isBackground(region.box)) {
            drawings.push_back(
                {std::max(0.0, region.box.left - thresholds.lineMargin),
                 std::max(0.0, region.box.top - thresholds.lineMargin),
                 std::min(page.width, region.box.right + thresholds.lineMargin),
                 std::min(page.height, region.box.bottom + thresholds.lineMargin)});
        }
    };
    for (const Region &region : joined(parts)) {
        if (isFramedText(page, region.box, strokes)) { // a form or a striped table with a few ornaments
            for (const Region &stroke : strokes) {
                if (region.box.contains(stroke.box.centreX(), stroke.box.centreY())) {
                    keep(stroke);
                }
            }
        } else {
            keep(region);
        }
    }
    return drawings;
}

} // namespace quorra::model
