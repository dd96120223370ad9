// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/drawings.h"

#include "figures/bar_charts.h"

#include <algorithm>

namespace quorra::model {

namespace {

constexpr double near = 9;      // points between parts of one drawing
constexpr double smallest = 28; // points: a smaller region is a bullet or an ornament
constexpr double mostOfPage = 0.8;
constexpr double lineWidth = 1; // points: half of it lies outside of a line's box
constexpr int fewestMarks = 3;  // curves and slanted lines

struct Region
{
    Box box;
    int ink = 0;
};

bool close(const Box &a, const Box &b)
{
    return a.left - near <= b.right && b.left - near <= a.right && a.top - near <= b.bottom && b.top - near <= a.bottom;
}

// Joins regions that are close to one another until none are. Regions are few after the first pass, so that the
// repeated passes stay cheap; parts usually come next to one another.
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
    constexpr double seam = 1; // points
    return a.left - seam <= b.right && b.left - seam <= a.right && a.top - seam <= b.bottom && b.top - seam <= a.bottom;
}

// The boxes around rules that touch one another: a frame is near a stroke with all its sides or not at all. Rules about
// as long as the page are the page's own; where rules reach that far together, each counts for itself.
std::vector<Box> connectedRules(const RawPage &page)
{
    constexpr std::size_t most = 1000; // beyond that it is a plan or a map, whose parts are close to one another anyway
    const double longest = 0.6 * std::max(page.width, page.height);
    std::vector<Box> rules;
    for (const Rule &rule : page.rules) {
        if (rule.length() < longest) {
            rules.push_back({rule.x1, rule.y1, rule.x2, rule.y2});
        }
    }
    if (rules.size() > most) {
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

// Much text, and lines and fills that reach far beyond what is really drawn.
bool isFramedText(const RawPage &page, const Box &region, const std::vector<Region> &strokes)
{
    constexpr int fewWords = 30;
    constexpr double mostlyDrawn = 0.25;
    double drawn = 0;
    for (const Region &stroke : strokes) {
        drawn += area(intersected(stroke.box, region));
    }
    const auto words = std::count_if(page.words.begin(), page.words.end(), [&region](const RawWord &word) {
        return region.contains(word.box.centreX(), word.box.centreY());
    });
    return words > fewWords && drawn < mostlyDrawn * area(region);
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
        return b.width() * b.height() > mostOfPage * pageArea || isTaken(b, taken);
    };
    std::vector<Region> strokes;
    for (const Ink &ink : page.ink) {
        if (!isBackground(ink.box)) {
            strokes.push_back({ink.box, 1});
        }
    }
    for (const Box &chart : charts) {
        if (!isBackground(chart)) {
            strokes.push_back({chart, fewestMarks});
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
        const bool large = region.box.width() >= smallest && region.box.height() >= smallest;
        if (large && region.ink >= fewestMarks && !isBackground(region.box)) {
            drawings.push_back(
                {std::max(0.0, region.box.left - lineWidth), std::max(0.0, region.box.top - lineWidth),
                 std::min(page.width, region.box.right + lineWidth),
                 std::min(page.height, region.box.bottom + lineWidth)});
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
