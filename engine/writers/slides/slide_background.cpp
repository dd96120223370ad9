// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_background.h"

#include "document/page_walk.h"
#include "odf/odf_frames.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

namespace quorra::office {

namespace {

struct Thresholds
{
    double samePlace = 0.5; ///< points; between the sides of the same thing on two pages
    double uncovered = 1;   ///< points; between the edge of the page and a fill that covers it
};
constexpr Thresholds thresholds;

bool isSame(const Box &one, const Box &other)
{
    const auto near = [](double a, double b) { return std::abs(a - b) <= thresholds.samePlace; };
    return near(one.left, other.left) && near(one.top, other.top) && near(one.right, other.right) &&
           near(one.bottom, other.bottom);
}

bool isSame(const model::Fill &one, const model::Fill &other)
{
    return one.colour == other.colour && isSame(one.box, other.box);
}

bool isSame(const model::Figure &one, const model::Figure &other)
{
    return one.kind == model::FigureKind::Image && other.kind == model::FigureKind::Image && one.stream &&
           other.stream && one.stream->object == other.stream->object &&
           one.stream->generation == other.stream->generation && isSame(one.box, other.box);
}

bool beginsWith(const std::vector<model::Fill> &fills, const std::vector<model::Fill> &first)
{
    return fills.size() >= first.size() &&
           std::equal(
               first.begin(), first.end(), fills.begin(), [](const auto &a, const auto &b) { return isSame(a, b); });
}

bool hasPicture(const model::Page &page, const model::Figure &picture)
{
    bool found = false;
    model::forEachBlock(
        page, [&](const model::Block &block) { found |= block.figure() && isSame(*block.figure(), picture); });
    return found;
}

/// Whether a fill other than the first ones is at the place of the picture.
bool isPaintedOn(const model::Page &page, const Box &box, std::size_t first)
{
    const std::vector<model::Fill> fills = visibleFills(page);
    return std::any_of(
        fills.begin() + static_cast<std::ptrdiff_t>(std::min(first, fills.size())), fills.end(),
        [&](const model::Fill &fill) {
            return fill.box.left < box.right && fill.box.right > box.left && fill.box.top < box.bottom &&
                   fill.box.bottom > box.top;
        });
}

/// Returns the only fill that can follow the first ones on most of the pages (the candidate of a majority vote).
std::optional<model::Fill>
usualNext(const std::vector<std::vector<model::Fill>> &pages, const std::vector<model::Fill> &first)
{
    std::optional<model::Fill> candidate;
    std::size_t votes = 0;
    for (const std::vector<model::Fill> &fills : pages) {
        if (fills.size() <= first.size() || !beginsWith(fills, first)) {
            continue;
        }
        const model::Fill &next = fills[first.size()];
        if (votes == 0) {
            candidate = next;
        }
        votes = isSame(*candidate, next) ? votes + 1 : votes - 1;
    }
    return candidate;
}

/// Returns an example of each image that is on more than half of the pages, in the order of the first one.
std::vector<const model::Figure *> repeatedPictures(const std::vector<const model::Page *> &pages)
{
    std::map<std::pair<int, int>, std::size_t> counts;
    std::vector<const model::Figure *> pictures;
    for (const model::Page *page : pages) {
        model::forEachBlock(*page, [&](const model::Block &block) {
            const model::Figure *figure = block.figure();
            if (figure && figure->stream && figure->kind == model::FigureKind::Image) {
                const std::size_t count = ++counts[{figure->stream->object, figure->stream->generation}];
                if (count == pages.size() / 2 + 1) {
                    pictures.push_back(figure);
                }
            }
        });
    }
    return pictures;
}

} // namespace

CommonBackground commonBackground(const model::Document &document)
{
    std::vector<const model::Page *> pages;
    std::vector<std::vector<model::Fill>> fills;
    for (const model::Page &page : document.pages) {
        if (!page.background) { // its background is one picture
            pages.push_back(&page);
            fills.push_back(visibleFills(page));
        }
    }
    const auto isMost = [&](std::size_t count) { return count > 1 && 2 * count > document.pages.size(); };
    CommonBackground common;
    for (;;) {
        const std::optional<model::Fill> next = usualNext(fills, common.fills);
        if (!next) {
            break;
        }
        common.fills.push_back(*next);
        const auto count =
            std::count_if(fills.begin(), fills.end(), [&](const auto &each) { return beginsWith(each, common.fills); });
        if (!isMost(static_cast<std::size_t>(count))) {
            common.fills.pop_back();
            break;
        }
    }
    for (const model::Figure *picture : repeatedPictures(pages)) {
        common.pictures.push_back(*picture);
        const auto count = std::count_if(
            pages.begin(), pages.end(), [&](const model::Page *page) { return hasBackground(*page, common); });
        if (!isMost(static_cast<std::size_t>(count))) {
            common.pictures.pop_back();
        }
    }
    return common;
}

bool hasBackground(const model::Page &page, const CommonBackground &common)
{
    return !page.background && beginsWith(visibleFills(page), common.fills) &&
           std::all_of(common.pictures.begin(), common.pictures.end(), [&](const model::Figure &picture) {
               return hasPicture(page, picture) && !isPaintedOn(page, picture.box, common.fills.size());
           });
}

bool isCommon(const model::Figure &figure, const CommonBackground &common)
{
    return std::any_of(common.pictures.begin(), common.pictures.end(), [&](const model::Figure &picture) {
        return isSame(picture, figure);
    });
}

bool coversPage(const model::Fill &fill, const model::Page &page)
{
    return fill.box.left <= thresholds.uncovered && fill.box.top <= thresholds.uncovered &&
           fill.box.right >= page.width - thresholds.uncovered && fill.box.bottom >= page.height - thresholds.uncovered;
}

} // namespace quorra::office
