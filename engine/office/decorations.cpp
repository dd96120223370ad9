// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/office/decorations.h"

#include "engine/office/page_walk.h"

#include <algorithm>

namespace quorra::office {

namespace {

constexpr double ShortestSeparator = 36; // shorter ones underline a word or are part of a drawing
constexpr double FarthestRule = 30;      // points between a separator and the text that takes it
constexpr double Touching = 2;

bool sharesWidth(const model::Rule &rule, const model::Box &box)
{
    const double shared = std::min(rule.x2, box.right) - std::max(rule.x1, box.left);
    return shared > 0.5 * std::min(rule.length(), box.width());
}

// Nothing else stands between the rule and the block.
bool isNextTo(const model::Page &page, const model::Rule &rule, const model::Box &block)
{
    bool free = true;
    const double from = std::min(rule.y1, block.top);
    const double to = std::max(rule.y1, block.bottom);
    forEachBlock(page, [&](const model::Block &other) {
        const model::Box box = other.box();
        free = free && (box == block || !sharesWidth(rule, box) || box.bottom <= from + Touching ||
                        box.top >= to - Touching || (box.top <= block.top && box.bottom >= block.bottom));
    });
    return free;
}

bool hasTextBelow(const model::Page &page, const model::Rule &rule)
{
    bool found = false;
    forEachBlock(page, [&](const model::Block &block) {
        const model::Box box = block.box();
        found = found || (block.paragraph() && sharesWidth(rule, box) && box.top >= rule.y1 - Touching &&
                          box.top <= rule.y1 + FarthestRule);
    });
    return found;
}

} // namespace

Decoration decorationOf(const model::Page &page, const model::Box &block)
{
    Decoration decoration;
    for (const model::Rule &rule : page.rules) {
        if (!rule.isHorizontal() || rule.length() < ShortestSeparator || !sharesWidth(rule, block)) {
            continue;
        }
        const model::Border border{rule.width, rule.colour};
        const double above = block.top - rule.y1;
        const double below = rule.y1 - block.bottom;
        if (above >= -Touching && above <= FarthestRule && isNextTo(page, rule, block)) {
            decoration.above = border;
        } else if (
            below >= -Touching && below <= FarthestRule && !hasTextBelow(page, rule) && isNextTo(page, rule, block)) {
            decoration.below = border;
        }
    }
    for (const model::Fill &fill : page.fills) {
        if (fill.colour != model::white && fill.box.contains(block.centreX(), block.centreY()) &&
            model::intersected(fill.box, block).width() > 0.9 * block.width()) {
            decoration.background = fill.colour;
        }
    }
    return decoration;
}

bool isBehindText(const model::Page &page, const model::Picture &picture)
{
    bool behind = false;
    forEachBlock(page, [&](const model::Block &block) {
        const model::Box box = block.box();
        behind = behind || (!block.picture() && !isLabelOf(block, picture) && !box.isEmpty() &&
                            picture.box.contains(box.centreX(), box.centreY()) &&
                            model::intersected(picture.box, box).width() > 0.5 * box.width());
    });
    return behind;
}

} // namespace quorra::office
