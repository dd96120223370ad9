// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/paragraph_borders.h"

#include "document/page_walk.h"

#include <algorithm>

namespace quorra::office {

namespace {

constexpr double shortestSeparator = 36; // shorter ones underline a word or are part of a drawing
constexpr double farthestRule = 30;      // points between a separator and the text that takes it
constexpr double farthestHeadRule = 14;  // the same for running heads
constexpr double touching = 2;
constexpr double mostBackground = 4; // times the text's height: a larger area is more than this text's background

bool sharesWidth(const model::Rule &rule, const Box &box)
{
    const double shared = std::min(rule.x2, box.right) - std::max(rule.x1, box.left);
    return shared > 0.5 * std::min(rule.length(), box.width());
}

// Nothing else stands between the rule and the block.
bool isNextTo(const model::Page &page, const model::Rule &rule, const Box &block)
{
    bool free = true;
    const double from = std::min(rule.y1, block.top);
    const double to = std::max(rule.y1, block.bottom);
    forEachBlock(page, [&](const model::Block &other) {
        const Box box = other.box();
        free = free && (box == block || !sharesWidth(rule, box) || box.bottom <= from + touching ||
                        box.top >= to - touching || (box.top <= block.top && box.bottom >= block.bottom));
    });
    return free;
}

bool hasTextBelow(const model::Page &page, const model::Rule &rule)
{
    bool found = false;
    forEachBlock(page, [&](const model::Block &block) {
        const Box box = block.box();
        found = found || (block.paragraph() && sharesWidth(rule, box) && box.top >= rule.y1 - touching &&
                          box.top <= rule.y1 + farthestRule);
    });
    return found;
}

// Adds the rule to the decoration when it lies within reach of the box.
void take(Decoration &decoration, const model::Rule &rule, const Box &box, double reach)
{
    const model::Border border{rule.width, rule.colour};
    const double above = box.top - rule.y1;
    const double below = rule.y1 - box.bottom;
    if (above >= -touching && above <= reach && border.width >= decoration.above.width) {
        decoration.above = border;
        decoration.gapAbove = std::max(0.0, above);
        decoration.aboveFrom = rule.x1;
        decoration.aboveTo = rule.x2;
    } else if (below >= -touching && below <= reach && border.width >= decoration.below.width) {
        decoration.below = border;
        decoration.gapBelow = std::max(0.0, below);
    }
}

bool isHeadRule(const model::Page &page, const model::Rule &rule)
{
    return std::any_of(page.runningHeads.begin(), page.runningHeads.end(), [&](const model::Block &head) {
        const Box box = head.box();
        return rule.y1 > box.top - farthestHeadRule && rule.y1 < box.bottom + farthestHeadRule && rule.x1 < box.right &&
               rule.x2 > box.left;
    });
}

} // namespace

Decoration headDecoration(const model::Page &page, const Box &line)
{
    Decoration decoration;
    for (const model::Rule &rule : page.rules) {
        if (rule.isHorizontal() && rule.length() >= shortestSeparator && sharesWidth(rule, line)) {
            take(decoration, rule, line, farthestHeadRule);
        }
    }
    return decoration;
}

Decoration decorationOf(const model::Page &page, const Box &block)
{
    Decoration decoration;
    for (const model::Rule &rule : page.rules) {
        if (!rule.isHorizontal() || rule.length() < shortestSeparator || !sharesWidth(rule, block) ||
            isHeadRule(page, rule) || !isNextTo(page, rule, block)) {
            continue;
        }
        if (rule.y1 < block.centreY() || !hasTextBelow(page, rule)) {
            take(decoration, rule, block, farthestRule);
        }
    }
    for (const model::Fill &fill : page.fills) {
        if (fill.colour != white && fill.box.contains(block.centreX(), block.centreY()) &&
            intersected(fill.box, block).width() > 0.9 * block.width() &&
            fill.box.height() < mostBackground * block.height()) {
            decoration.background = fill.colour;
        }
    }
    return decoration;
}

bool hasShortRule(const Decoration &decoration, const Box &column)
{
    constexpr double mostOfColumn = 0.8;
    return decoration.above.width > 0 && decoration.aboveTo - decoration.aboveFrom < mostOfColumn * column.width();
}

} // namespace quorra::office
