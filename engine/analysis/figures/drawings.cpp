// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/drawings.h"

#include "figures/bar_charts.h"
#include "figures/rectangles.h"

#include <algorithm>

namespace quorra::model {

namespace {

struct Thresholds
{
    double maxGap = 9;            ///< points between parts of one drawing
    double minSide = 28;          ///< points; in a smaller region, words are text with an ornament
    double minLength = 6;         ///< points; the longer side of what counts as a separate sign
    double minThickness = 3;      ///< points; its shorter side: thinner marks are lines
    double maxArea = 0.8;         ///< share of the page; larger marks are its background
    double lineMargin = 1;        ///< points added around a drawing; half a line's width is outside of its box
    int minMarks = 3;             ///< curves and slanted lines in a drawing that holds words
    double seam = 1;              ///< points; rules whose ends are closer touch
    std::size_t maxRules = 1000;  ///< more are a plan or a map, whose parts are close to one another anyway
    double maxRuleLength = 0.6;   ///< share of the page's longer side; longer rules divide the page
    std::ptrdiff_t maxWords = 30; ///< in a drawing of few marks; more make it framed text
    double minDrawn = 0.25;       ///< share of a region with much text that its marks cover
    double maxLetter = 72;        ///< points; higher marks are no letters drawn as outlines
    double maxLetterRatio = 2.2;  ///< of the highest letter to the lowest: "Aa"
    double minSharedHeight = 0.5; ///< share of the lower letter's height that two letters of a line have in common
    double wordGap = 0.8;         ///< of the lower letter's height, between words
    double minField = 6;          ///< points; the shorter side of an empty frame to write in
};

constexpr Thresholds thresholds;

struct Region
{
    Box box;
    int ink = 0;
};

// Letters drawn as outlines are on one line, words of them further apart than other parts of a drawing.
double maxGapBetween(const Box &a, const Box &b)
{
    const double lower = std::min(a.height(), b.height());
    const double higher = std::max(a.height(), b.height());
    const double shared = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    const bool letters = higher <= thresholds.maxLetter && higher <= thresholds.maxLetterRatio * lower &&
                         shared >= thresholds.minSharedHeight * lower;
    return letters ? std::max(thresholds.maxGap, thresholds.wordGap * lower) : thresholds.maxGap;
}

bool close(const Box &a, const Box &b)
{
    const double gap = maxGapBetween(a, b);
    return a.left - gap <= b.right && b.left - gap <= a.right && a.top - thresholds.maxGap <= b.bottom &&
           b.top - thresholds.maxGap <= a.bottom;
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
                if (!seen[k] && touch(network[at], rules[k], thresholds.seam)) {
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

std::ptrdiff_t wordsIn(const RawPage &page, const Box &region)
{
    return std::count_if(page.words.begin(), page.words.end(), [&region](const RawWord &word) {
        return region.contains(word.box.centreX(), word.box.centreY());
    });
}

// Empty frames to write in, those side by side together: boxes for one letter each.
std::vector<Box> emptyFields(const RawPage &page)
{
    const double longest = thresholds.maxRuleLength * std::max(page.width, page.height);
    std::vector<Box> fields;
    for (Box field : drawnRectangles(page.rules)) {
        if (std::min(field.width(), field.height()) < thresholds.minField ||
            std::max(field.width(), field.height()) > longest) {
            continue;
        }
        for (std::size_t i = fields.size(); i-- > 0;) {
            if (touch(fields[i], field, thresholds.seam)) {
                field = united(field, fields[i]);
                fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        fields.push_back(field);
    }
    fields.erase(
        std::remove_if(fields.begin(), fields.end(), [&page](const Box &field) { return wordsIn(page, field) > 0; }),
        fields.end());
    return fields;
}

// Whether the region has much text and few marks: its rules and fills extend far beyond what is drawn.
bool isFramedText(const RawPage &page, const Box &region, const std::vector<Region> &strokes)
{
    double drawn = 0;
    for (const Region &stroke : strokes) {
        drawn += intersected(stroke.box, region).area();
    }
    return wordsIn(page, region) > thresholds.maxWords && drawn < thresholds.minDrawn * region.area();
}

// Whether the box is nearly the whole page and has text on it, or belongs to a table.
bool isBackground(const RawPage &page, const Box &box, const std::vector<Box> &taken)
{
    const bool large = box.area() > thresholds.maxArea * page.width * page.height;
    return (large && !page.words.empty()) || isTaken(box, taken);
}

// The strokes, and the frames and fills beside them.
std::vector<Region> partsOf(const RawPage &page, const std::vector<Region> &strokes, const std::vector<Box> &taken)
{
    std::vector<Region> parts = strokes;
    if (strokes.empty()) {
        return parts;
    }
    const auto addNear = [&](const Box &box) {
        if (!isBackground(page, box, taken) &&
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
    return parts;
}

// What is seen: any sign without words, and with words what has more than ornaments around them.
bool isDrawing(const RawPage &page, const Region &region)
{
    const double shorter = std::min(region.box.width(), region.box.height());
    const double longer = std::max(region.box.width(), region.box.height());
    if (shorter >= thresholds.minSide && region.ink >= thresholds.minMarks) {
        return true;
    }
    return region.ink > 0 && longer >= thresholds.minLength && shorter >= thresholds.minThickness &&
           wordsIn(page, region.box) == 0;
}

} // namespace

std::vector<Box> findDrawings(const RawPage &page, const std::vector<Box> &taken, const std::vector<Box> &networks)
{
    std::vector<Box> wholes = findBarCharts(page, taken);
    wholes.insert(wholes.end(), networks.begin(), networks.end());
    std::vector<Region> strokes;
    for (const Ink &ink : page.ink) {
        if (!isBackground(page, ink.box, taken)) {
            strokes.push_back({ink.box, 1});
        }
    }
    for (const Box &whole : wholes) {
        if (!isBackground(page, whole, taken)) {
            strokes.push_back({whole, thresholds.minMarks});
        }
    }
    strokes = joined(strokes);
    std::vector<Box> drawings;
    const auto keep = [&](const Region &region) {
        if (isDrawing(page, region) && !isBackground(page, region.box, taken)) {
            drawings.push_back(
                {std::max(0.0, region.box.left - thresholds.lineMargin),
                 std::max(0.0, region.box.top - thresholds.lineMargin),
                 std::min(page.width, region.box.right + thresholds.lineMargin),
                 std::min(page.height, region.box.bottom + thresholds.lineMargin)});
        }
    };
    for (const Region &region : joined(partsOf(page, strokes, taken))) {
        // A form or a striped table with a few ornaments, or a mark whose neighbours are lines around text.
        if (isFramedText(page, region.box, strokes) || !isDrawing(page, region)) {
            for (const Region &stroke : strokes) {
                if (region.box.contains(stroke.box.centreX(), stroke.box.centreY())) {
                    keep(stroke);
                }
            }
        } else {
            keep(region);
        }
    }
    for (const Box &field : emptyFields(page)) {
        if (!isTaken(field, drawings)) {
            keep({field, thresholds.minMarks});
        }
    }
    return drawings;
}

} // namespace quorra::model
