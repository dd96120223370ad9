// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/model/drawings.h"

#include <algorithm>

namespace quorra::model {

namespace {

constexpr double near = 9;      // points between parts of one drawing
constexpr double smallest = 28; // points: a smaller region is a bullet or an ornament
constexpr double mostOfPage = 0.8;

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

bool isTaken(const Box &box, const std::vector<Box> &taken)
{
    return std::any_of(
        taken.begin(), taken.end(), [&box](const Box &t) { return t.contains(box.centreX(), box.centreY()); });
}

} // namespace

std::vector<Box> findDrawings(const RawPage &page, const std::vector<Box> &taken)
{
    if (page.ink.empty()) {
        return {};
    }
    const double pageArea = page.width * page.height;
    const auto isBackground = [&](const Box &b) {
        return b.width() * b.height() > mostOfPage * pageArea || isTaken(b, taken);
    };
    std::vector<Region> parts;
    for (const Box &ink : page.ink) {
        if (!isBackground(ink)) {
            parts.push_back({ink, 1});
        }
    }
    parts = joined(parts);
    for (const Rule &rule : page.rules) {
        const Box box{rule.x1, rule.y1, rule.x2, rule.y2};
        const bool touches =
            std::any_of(parts.begin(), parts.end(), [&](const Region &r) { return close(r.box, box); });
        if (touches && !isBackground(box) && rule.length() < 0.6 * std::max(page.width, page.height)) {
            parts.push_back({box, 0});
        }
    }
    for (const Fill &fill : page.fills) {
        if (!isBackground(fill.box) &&
            std::any_of(parts.begin(), parts.end(), [&](const Region &r) { return close(r.box, fill.box); })) {
            parts.push_back({fill.box, 0});
        }
    }
    std::vector<Box> drawings;
    constexpr int fewestMarks = 3;
    for (const Region &region : joined(parts)) {
        const bool large = region.box.width() >= smallest && region.box.height() >= smallest;
        if (large && region.ink >= fewestMarks && !isBackground(region.box)) {
            drawings.push_back(region.box);
        }
    }
    return drawings;
}

} // namespace quorra::model
