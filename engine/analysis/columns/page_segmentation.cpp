// SPDX-License-Identifier: GPL-3.0-or-later
#include "columns/page_segmentation.h"

#include "columns/column_gaps.h"
#include "document/direction.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace quorra::model {

namespace {

using pageSegmentation::thresholds;

Box boxOf(const RegionItems &items)
{
    Box box;
    for (const RawWord *word : items.words) {
        box = united(box, bodyOf(*word));
    }
    for (const auto &obstacle : items.obstacles) {
        box = united(box, obstacle.first);
    }
    return box;
}

bool isEmpty(const RegionItems &items)
{
    return items.words.empty() && items.obstacles.empty();
}

// Where something is relative to a column gap.
enum class Place { Above, Left, Right, Below };

Place placeOf(const Box &box, const ColumnGap &gap)
{
    if (box.centreY() < gap.top) {
        return Place::Above;
    }
    if (box.centreY() > gap.bottom) {
        return Place::Below;
    }
    return box.centreX() < (gap.left + gap.right) / 2 ? Place::Left : Place::Right;
}

struct Parts
{
    RegionItems above;
    RegionItems left;
    RegionItems right;
    RegionItems below;

    RegionItems &at(Place place)
    {
        switch (place) {
        case Place::Above:
            return above;
        case Place::Left:
            return left;
        case Place::Right:
            return right;
        case Place::Below:
            break;
        }
        return below;
    }
};

Parts splitAt(const RegionItems &items, const ColumnGap &gap)
{
    Parts parts;
    for (const RawWord *word : items.words) {
        parts.at(placeOf(bodyOf(*word), gap)).words.push_back(word);
    }
    for (const auto &obstacle : items.obstacles) {
        parts.at(placeOf(obstacle.first, gap)).obstacles.push_back(obstacle);
    }
    return parts;
}

void append(std::vector<Band> &bands, std::vector<Band> more)
{
    std::move(more.begin(), more.end(), std::back_inserter(bands));
}

bool isRightToLeft(const Parts &parts)
{
    const WordRefs &left = parts.left.words;
    const WordRefs &right = parts.right.words;
    const auto isForeign = [](const RawWord *word) { return hasRightToLeft(word->text); };
    return (std::any_of(left.begin(), left.end(), isForeign) || std::any_of(right.begin(), right.end(), isForeign)) &&
           model::isRightToLeft(joinedText(left) + joinedText(right));
}

std::vector<Band> split(RegionItems items, int depth, const std::vector<ColumnGap> &known, PageGaps &page);

// The columns on one side of a gap: several if a gap over the whole height divides it again, else one.
std::vector<Band::Column> columnsOf(RegionItems side, int depth, const std::vector<ColumnGap> &known, PageGaps &page)
{
    const Box box = boxOf(side);
    std::vector<Band> bands = split(std::move(side), depth, known, page);
    if (bands.size() == 1) {
        return std::move(bands.front().columns);
    }
    // The column is divided into bands: their parts in reading order.
    std::vector<Band::Column> columns{{box, {}}};
    for (Band &band : bands) {
        for (Band::Column &column : band.columns) {
            std::move(column.parts.begin(), column.parts.end(), std::back_inserter(columns[0].parts));
        }
    }
    return columns;
}

// Gaps that were found in the region around this one are `known`.
std::vector<Band> split(RegionItems items, int depth, const std::vector<ColumnGap> &known, PageGaps &page)
{
    std::vector<Band> bands;
    if (isEmpty(items)) {
        return bands;
    }
    const std::optional<ColumnGap> gap =
        depth < thresholds.maxDepth ? findColumnGap(items, known, page.possible) : std::nullopt;
    if (!gap) {
        const Box box = boxOf(items);
        bands.push_back({{{box, {std::move(items)}}}});
        return bands;
    }
    std::vector<ColumnGap> gaps = known;
    gaps.push_back(*gap);
    page.found.push_back(*gap);
    Parts parts = splitAt(items, *gap);
    const bool rightToLeft = isRightToLeft(parts);
    append(bands, split(std::move(parts.above), depth + 1, gaps, page));
    Band band;
    for (RegionItems *side : {rightToLeft ? &parts.right : &parts.left, rightToLeft ? &parts.left : &parts.right}) {
        std::vector<Band::Column> columns = columnsOf(std::move(*side), depth + 1, gaps, page);
        std::move(columns.begin(), columns.end(), std::back_inserter(band.columns));
    }
    bands.push_back(std::move(band));
    append(bands, split(std::move(parts.below), depth + 1, gaps, page));
    return bands;
}

} // namespace

std::vector<Band> segmentPage(RegionItems items, PageGaps &gaps)
{
    const std::vector<ColumnGap> known = gaps.known;
    return split(std::move(items), 0, known, gaps);
}

bool tearTaggedLines(const std::vector<Band> &bands)
{
    for (const Band &band : bands) {
        std::map<std::pair<const TaggedParagraph *, long>, std::size_t> columnOf; // of a paragraph's baseline
        for (std::size_t column = 0; column < band.columns.size() && band.columns.size() > 1; ++column) {
            for (const RegionItems &part : band.columns[column].parts) {
                for (const RawWord *word : part.words) {
                    const auto baseline = static_cast<long>(word->baseline);
                    if (word->tagged &&
                        columnOf.emplace(std::pair(word->tagged, baseline), column).first->second != column) {
                        return true;
                    }
                }
            }
        }
    }
    return false;
}

} // namespace quorra::model
