// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/alternatives.h"

#include "document/page_walk.h"

#include <algorithm>

namespace quorra::model {

namespace {

struct Thresholds
{
    double minCovered = 0.5; ///< share of the smaller area; a figure may be cut at the edge of the page or of a frame
};

constexpr Thresholds thresholds;

double area(const Box &box)
{
    return std::max(0.0, box.width()) * std::max(0.0, box.height());
}

} // namespace

void giveAlternatives(Page &page, const std::vector<Alternative> &alternatives)
{
    for (const Alternative &alternative : alternatives) {
        Figure *best = nullptr;
        double most = 0;
        forEachBlock(page, [&](Block &block) {
            Figure *figure = block.figure();
            const double common = figure ? area(intersected(figure->box, alternative.box)) : 0;
            const double smaller = figure ? std::min(area(figure->box), area(alternative.box)) : 0;
            if (common > most && common >= thresholds.minCovered * smaller) {
                best = figure;
                most = common;
            }
        });
        if (best && best->alternative.isEmpty()) {
            best->alternative = alternative.text;
        }
    }
}

} // namespace quorra::model
