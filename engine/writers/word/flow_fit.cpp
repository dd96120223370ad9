// SPDX-License-Identifier: GPL-3.0-or-later
#include "flow_fit.h"

#include "odf/odf_paragraphs.h"

#include <algorithm>

namespace quorra::office {

namespace {

struct Thresholds
{
    double closestLines = 0.9; ///< share of their distance on the page; closer ones are hard to read
    double leastSpaces = 0.5;  ///< share of the space on the page; less hides what it separates
    double doubt = 0.05;       ///< share of the lines' heights; how the text breaks is only estimated
    double around = 3;         ///< points; that a table or picture takes beyond its own height
};
constexpr Thresholds thresholds;

/// Heights on a page in points, by what can be done about them.
struct Heights
{
    double lines = 0;
    double spaces = 0;
    double fixed = 0;
};

Heights heightsOf(const FlowSection &section)
{
    Heights heights;
    double tallest = 0; // line
    for (const FlowItem &item : section.items) {
        if (item.behindText) {
            continue; // see anchorsOf()
        }
        heights.spaces += item.spaceAbove;
        if (item.block->paragraph()) {
            heights.lines += item.lines * item.lineHeight;
            tallest = std::max(tallest, item.lineHeight);
        } else {
            heights.fixed += item.height + thresholds.around;
        }
    }
    if (section.inColumns) {
        const auto columns = static_cast<double>(section.section->columns.size());
        heights.lines /= columns;
        heights.spaces /= columns;
        heights.fixed /= columns;
        heights.fixed += tallest; // columns never come out quite equal
    }
    heights.spaces += section.spaceAbove;
    return heights;
}

/// The height of the empty paragraphs that the section needs: before and after columns, and for pictures behind text.
double anchorsOf(const FlowSection &section)
{
    const auto behind =
        std::count_if(section.items.begin(), section.items.end(), [](const FlowItem &item) { return item.behindText; });
    return emptyParagraphHeight * static_cast<double>(behind + (section.inColumns ? 2 : 0));
}

} // namespace

Fit fitOf(const FlowPage &page)
{
    Heights all;
    for (const FlowSection &section : page.sections) {
        const Heights heights = heightsOf(section);
        all.spaces += heights.spaces;
        all.lines += heights.lines;
        all.fixed += heights.fixed + anchorsOf(section);
    }
    Fit fit;
    double over = (1 + thresholds.doubt) * all.lines + all.spaces + all.fixed - page.room;
    if (over <= 0) {
        return fit;
    }
    if (all.spaces > 0) {
        fit.spaces = std::max(thresholds.leastSpaces, 1 - over / all.spaces);
        over -= (1 - fit.spaces) * all.spaces;
    }
    if (all.lines > 0 && over > 0) {
        fit.lines = std::max(thresholds.closestLines, 1 - over / all.lines);
    }
    return fit;
}

void fitToRoom(FlowPage &page)
{
    const Fit fit = fitOf(page);
    for (FlowSection &section : page.sections) {
        section.spaceAbove *= fit.spaces;
        for (FlowItem &item : section.items) {
            item.spaceAbove *= fit.spaces;
            item.lineHeight *= fit.lines;
        }
    }
}

} // namespace quorra::office
