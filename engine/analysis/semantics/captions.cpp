// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/captions.h"

#include "document/page_walk.h"

#include <algorithm>
#include <set>
#include <vector>

namespace quorra::model {

namespace {

using captions::thresholds;

/// The empty space between two boxes beside or below one another; for other boxes, more than the limit for captions.
double gapBetween(const Box &a, const Box &b)
{
    const double across = std::max(a.left, b.left) - std::min(a.right, b.right);
    const double down = std::max(a.top, b.top) - std::min(a.bottom, b.bottom);
    const bool facing = across < 0 || down < 0;
    return facing ? std::max({0.0, across, down}) : 2 * thresholds.maxDistance;
}

} // namespace

void linkCaptions(Page &page)
{
    std::vector<Block *> blocks;
    forEachBlock(page, [&blocks](Block &block) { blocks.push_back(&block); });
    std::set<const Figure *> taken;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        Paragraph *caption = blocks[i]->paragraph();
        if (!caption || caption->role != Role::Caption) {
            continue;
        }
        const Block *nearest = nullptr;
        double gap = thresholds.maxDistance;
        for (const Block *each : {i > 0 ? blocks[i - 1] : nullptr, i + 1 < blocks.size() ? blocks[i + 1] : nullptr}) {
            if (each && !each->paragraph() && taken.count(each->figure()) == 0 &&
                gapBetween(each->box(), caption->box) < gap) {
                nearest = each;
                gap = gapBetween(each->box(), caption->box);
            }
        }
        if (const Figure *figure = nearest ? nearest->figure() : nullptr) {
            caption->captionOf = figure->id;
            taken.insert(figure);
        }
    }
}

} // namespace quorra::model
