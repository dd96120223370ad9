// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/unruled_table.h"

#include "paragraphs/list_mark.h"
#include "tables/text_grid.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using unruledTables::thresholds;
constexpr double minCellGap = textGrid::thresholds.minCellGap;

struct LineRange
{
    std::size_t first = 0;
    std::size_t last = 0; // included
};

bool isLeader(const QString &text)
{
    const auto dots = text.count(QLatin1Char('.'));
    return dots >= thresholds.minLeaderDots && dots * 2 >= text.size();
}

// Whether the line has a leader, "....." or ". . . . .": a table of contents reads better as lines.
bool hasLeader(const TextLine &line)
{
    qsizetype loneDots = 0;
    for (const RawWord *word : line.words) {
        loneDots += word->text == QLatin1String(".") ? 1 : 0;
        if (isLeader(word->text)) {
            return true;
        }
    }
    return loneDots >= thresholds.minLeaderDots;
}

bool isListLine(const std::vector<Segment> &segments)
{
    return segments.size() == 2 && isListMark(joinedText(segments.front().words));
}

bool hasRuleBetween(const std::vector<Rule> &horizontal, const TextLine &upper, const TextLine &lower)
{
    return std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
        return rule.y1 > upper.box.centreY() && rule.y1 < lower.box.centreY() && rule.x2 > upper.box.left &&
               rule.x1 < upper.box.right;
    });
}

// Whether the upper line is a heading over several columns, underlined by a rule that is shorter than the table is
// wide.
bool isHeadingOver(const TextLine &upper, const TextLine &lower, const std::vector<Rule> &horizontal)
{
    const double whole = std::max(lower.box.right, upper.box.right) - std::min(lower.box.left, upper.box.left);
    return lower.baseline - upper.baseline < thresholds.maxHeadingStep * lower.size &&
           std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
               return rule.y1 > upper.box.centreY() && rule.y1 < lower.box.centreY() && rule.x1 < upper.box.centreX() &&
                      rule.x2 > upper.box.centreX() && rule.length() < textGrid::thresholds.minFullRule * whole;
           });
}

// Whether the lower line only continues a cell of the upper one, in its column.
bool continuesCell(const std::vector<Segment> &upper, const std::vector<Segment> &lower, double step, double size)
{
    if (lower.size() != 1 || step > thresholds.maxWrapStep * size ||
        !lower.front().words.front()->text.front().isLower()) {
        return false;
    }
    for (std::size_t i = 0; i < upper.size(); ++i) {
        const double room = i + 1 < upper.size() ? upper[i + 1].box.left : upper[i].box.right + size;
        if (std::abs(upper[i].box.left - lower.front().box.left) < thresholds.maxWrapShift * size &&
            lower.front().box.right < room) {
            return true;
        }
    }
    return false;
}

// Ranges of neighbouring lines nearly all of which have wide gaps.
std::vector<LineRange> candidateRanges(
    const std::vector<TextLine> &lines, const std::vector<std::vector<Segment>> &segments,
    const std::vector<Rule> &horizontal)
{
    std::vector<LineRange> ranges;
    const auto isMulti = [&](std::size_t i) { return segments[i].size() >= 2 && !isListLine(segments[i]); };
    for (std::size_t i = 0; i < lines.size();) {
        if (!isMulti(i)) {
            ++i;
            continue;
        }
        LineRange range{i, i};
        std::size_t singles = 0;
        for (std::size_t j = i + 1; j < lines.size(); ++j) {
            const double reach =
                hasRuleBetween(horizontal, lines[j - 1], lines[j]) ? thresholds.maxRuledStep : thresholds.maxRowStep;
            if (lines[j].baseline - lines[j - 1].baseline > reach * std::max(lines[j].size, lines[j - 1].size)) {
                break;
            }
            if (isMulti(j)) {
                range.last = j;
                singles = 0;
            } else if (++singles > thresholds.maxSingles) {
                break;
            }
        }
        const std::size_t floor = ranges.empty() ? 0 : ranges.back().last + 1;
        while (range.first > floor && isHeadingOver(lines[range.first - 1], lines[range.first], horizontal)) {
            --range.first;
        }
        std::size_t next = range.last + 1;
        while (next < lines.size() && continuesCell(
                                          segments[range.last], segments[next],
                                          lines[next].baseline - lines[next - 1].baseline, lines[next].size)) {
            ++next;
        }
        range.last = next - 1;
        ranges.push_back(range);
        i = range.last + 1;
    }
    return ranges;
}

std::size_t count(const std::vector<TextLine> &lines, const LineRange &s, bool (*has)(const TextLine &))
{
    return static_cast<std::size_t>(std::count_if(
        lines.begin() + static_cast<std::ptrdiff_t>(s.first), lines.begin() + static_cast<std::ptrdiff_t>(s.last) + 1,
        has));
}

bool isFixedPitch(const TextLine &line)
{
    return line.words.front()->style.fixedPitch;
}

// The parts of a range between rules that run across it. Text above and below a table may have columns too; then the
// whole is no table, while one of its parts is.
std::vector<LineRange>
partsBetweenRules(const std::vector<TextLine> &lines, const LineRange &range, const std::vector<Rule> &horizontal)
{
    const auto isRuledOff = [&](std::size_t lower) {
        const Box both = united(lines[lower - 1].box, lines[lower].box);
        return std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
            return rule.y1 > lines[lower - 1].box.centreY() && rule.y1 < lines[lower].box.centreY() &&
                   std::min(rule.x2, both.right) - std::max(rule.x1, both.left) > thresholds.minPartRule * both.width();
        });
    };
    std::vector<LineRange> result;
    LineRange part{range.first, range.first};
    for (std::size_t i = range.first + 1; i <= range.last + 1; ++i) {
        if (i <= range.last && !isRuledOff(i)) {
            part.last = i;
            continue;
        }
        if (part.last - part.first + 1 >= thresholds.minLinesOfPart) {
            result.push_back(part);
        }
        part = {i, i};
    }
    return result;
}

} // namespace

std::vector<UnruledTable> findUnruledTables(const std::vector<TextLine> &lines, const std::vector<Rule> &horizontal)
{
    std::vector<std::vector<Segment>> segments;
    segments.reserve(lines.size());
    for (const TextLine &line : lines) {
        segments.push_back(segmentsOf(line, minCellGap));
    }
    std::vector<UnruledTable> tables;
    const auto add = [&](const LineRange &range) {
        const std::size_t length = range.last - range.first + 1;
        const double maxLeaders = thresholds.maxLeaderLines * static_cast<double>(length);
        if (length < thresholds.minLines || static_cast<double>(count(lines, range, hasLeader)) > maxLeaders ||
            2 * count(lines, range, isFixedPitch) > length) {
            return true; // something else, and so are its parts
        }
        TextGrid grid(
            {lines.begin() + static_cast<std::ptrdiff_t>(range.first),
             lines.begin() + static_cast<std::ptrdiff_t>(range.last) + 1},
            horizontal);
        if (!grid.looksLikeTable()) {
            return false;
        }
        tables.push_back({grid.tableWords(), range.first, range.last});
        return true;
    };
    for (const LineRange &range : candidateRanges(lines, segments, horizontal)) {
        if (!add(range)) {
            const std::vector<LineRange> parts = partsBetweenRules(lines, range, horizontal);
            std::for_each(parts.begin(), parts.end(), add);
        }
    }
    return tables;
}

} // namespace quorra::model
