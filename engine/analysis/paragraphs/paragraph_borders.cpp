// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/paragraph_borders.h"

#include "document/page_walk.h"

#include <algorithm>

namespace quorra::model {

namespace {

constexpr double shortestSeparator = 36;  // points; shorter ones underline a word or are part of a drawing
constexpr double farthestRule = 30;       // points between a separator and the text that takes it
constexpr double farthestHeaderRule = 14; // the same for headers and footers
constexpr double touching = 2;            // points
constexpr double mostOfColumn = 0.8;      // of its width: a shorter line is a partial border
constexpr double mostlyShaded = 0.9;      // of the text's width
constexpr double mostShading = 4;         // times the text's height: a larger area is more than this text's background

bool sharesWidth(const Rule &rule, const Box &box)
{
    const double shared = std::min(rule.x2, box.right) - std::max(rule.x1, box.left);
    return shared > 0.5 * std::min(rule.length(), box.width());
}

bool isSeparator(const Rule &rule)
{
    return rule.isHorizontal() && rule.length() >= shortestSeparator;
}

// Nothing else is between the rule and the block.
bool isNextTo(const Page &page, const Rule &rule, const Box &block)
{
    bool free = true;
    const double from = std::min(rule.y1, block.top);
    const double to = std::max(rule.y1, block.bottom);
    forEachBlock(page, [&](const Block &other) {
        const Box box = other.box();
        free = free && (box == block || !sharesWidth(rule, box) || box.bottom <= from + touching ||
                        box.top >= to - touching || (box.top <= block.top && box.bottom >= block.bottom));
    });
    return free;
}

bool hasTextBelow(const Page &page, const Rule &rule)
{
    bool found = false;
    forEachBlock(page, [&](const Block &block) {
        const Box box = block.box();
        found = found || (block.paragraph() && sharesWidth(rule, box) && box.top >= rule.y1 - touching &&
                          box.top <= rule.y1 + farthestRule);
    });
    return found;
}

// Makes the rule the paragraph's border when it lies within reach of it.
void take(Paragraph &paragraph, const Rule &rule, double reach)
{
    const Box &box = paragraph.box;
    const double above = box.top - rule.y1;
    const double below = rule.y1 - box.bottom;
    const auto border = [&](double gap) {
        return ParagraphBorder{{rule.width, rule.colour}, std::max(0.0, gap), rule.x1 - box.left, rule.length(), false};
    };
    if (above >= -touching && above <= reach && rule.width >= paragraph.borderAbove.line.width) {
        paragraph.borderAbove = border(above);
    } else if (below >= -touching && below <= reach && rule.width >= paragraph.borderBelow.line.width) {
        paragraph.borderBelow = border(below);
    }
}

bool isHeaderRule(const Page &page, const Rule &rule)
{
    const auto isNear = [&rule](const Paragraph &paragraph) {
        const Box &box = paragraph.box;
        return rule.y1 > box.top - farthestHeaderRule && rule.y1 < box.bottom + farthestHeaderRule &&
               rule.x1 < box.right && rule.x2 > box.left;
    };
    return std::any_of(page.header.begin(), page.header.end(), isNear) ||
           std::any_of(page.footer.begin(), page.footer.end(), isNear);
}

bool isShadingOf(const Fill &fill, const Box &text)
{
    return fill.colour != white && fill.box.contains(text.centreX(), text.centreY()) &&
           intersected(fill.box, text).width() > mostlyShaded * text.width() &&
           fill.box.height() < mostShading * text.height();
}

void decorate(const Page &page, Paragraph &paragraph, double columnWidth)
{
    const Box &box = paragraph.box;
    for (const Rule &rule : page.rules) {
        if (isSeparator(rule) && sharesWidth(rule, box) && !isHeaderRule(page, rule) && isNextTo(page, rule, box) &&
            (rule.y1 < box.centreY() || !hasTextBelow(page, rule))) {
            take(paragraph, rule, farthestRule);
        }
    }
    for (ParagraphBorder *border : {&paragraph.borderAbove, &paragraph.borderBelow}) {
        border->partial = border->line.width > 0 && border->length < mostOfColumn * columnWidth;
    }
    for (const Fill &fill : page.fills) {
        if (isShadingOf(fill, box)) {
            paragraph.shading = fill.colour;
        }
    }
}

} // namespace

void findParagraphBorders(Page &page)
{
    for (Section &section : page.sections) {
        for (Block &block : section.blocks) {
            if (Paragraph *paragraph = block.paragraph()) {
                const auto column =
                    std::min(static_cast<std::size_t>(std::max(0, block.column)), section.columns.size() - 1);
                decorate(page, *paragraph, section.columns[column].width());
            }
        }
    }
    for (auto *edge : {&page.header, &page.footer}) {
        for (Paragraph &paragraph : *edge) {
            for (const Rule &rule : page.rules) {
                if (isSeparator(rule) && sharesWidth(rule, paragraph.box)) {
                    take(paragraph, rule, farthestHeaderRule);
                }
            }
        }
    }
}

} // namespace quorra::model
