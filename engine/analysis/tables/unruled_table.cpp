// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/unruled_table.h"

#include "base/number.h"
#include "base/statistics.h"
#include "tables/grid_columns.h"
#include "tables/leaders.h"
#include "tables/text_grid.h"
#include "text_lines/list_mark.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using unruledTables::thresholds;

struct LineRange
{
    std::size_t first = 0;
    std::size_t last = 0; // included

    std::size_t size() const { return last - first + 1; }
};

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
// wide, or a heading of columns beside the first.
bool isHeadingOver(
    const TextLine &upper, const TextLine &lower, const std::vector<Segment> &below,
    const std::vector<Rule> &horizontal)
{
    const double step = (lower.baseline - upper.baseline) / lower.size;
    if (step > thresholds.maxRowStep) {
        return false;
    }
    const double whole = std::max(lower.box.right, upper.box.right) - std::min(lower.box.left, upper.box.left);
    const bool besideFirst = step < thresholds.maxHeadingStep && upper.box.left > below.front().box.right &&
                             upper.box.right <= lower.box.right + lower.size &&
                             upper.box.width() < thresholds.maxHeadWidth * lower.box.width();
    return besideFirst || std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
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

bool linesUp(const Segment &a, const Segment &b)
{
    constexpr double same = textLines::thresholds.sameEdge;
    return std::abs(a.box.left - b.box.left) <= same || std::abs(a.box.right - b.box.right) <= same ||
           std::abs(a.box.centreX() - b.box.centreX()) <= same;
}

// Whether the lines have as many texts, each of which lines up with the one above it.
bool isAligned(const std::vector<Segment> &upper, const std::vector<Segment> &lower)
{
    return upper.size() == lower.size() && std::equal(upper.begin(), upper.end(), lower.begin(), linesUp);
}

// Whether the upper line is a head whose texts are close to one another: each lines up with one of the texts below, and
// the gaps between them are wider than the blanks inside them, unlike those of justified text.
bool isCloseHead(const TextLine &upper, const TextLine &lower, const std::vector<Segment> &below)
{
    const std::vector<Segment> texts = segmentsOf(upper, gridColumns::thresholds.minWeakGap);
    if (texts.size() < 3 || !isAligned(texts, below) ||
        lower.baseline - upper.baseline > thresholds.maxRowStep * upper.size) {
        return false;
    }
    double blank = 0;
    double gap = upper.box.width();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        gap = i == 0 ? gap : std::min(gap, texts[i].box.left - texts[i - 1].box.right);
        for (std::size_t k = 1; k < texts[i].words.size(); ++k) {
            blank = std::max(blank, bodyOf(*texts[i].words[k]).left - bodyOf(*texts[i].words[k - 1]).right);
        }
    }
    return gap >= thresholds.minHeadGap * blank;
}

// Whether each text of the lower line is inside the column of one of the upper line, which is not the first.
bool staysInCells(const std::vector<Segment> &upper, const std::vector<Segment> &lower)
{
    return std::all_of(lower.begin(), lower.end(), [&upper](const Segment &text) {
        for (std::size_t i = 1; i < upper.size(); ++i) {
            if (linesUp(upper[i], text) && text.box.left > upper[i - 1].box.right &&
                (i + 1 == upper.size() || text.box.right < upper[i + 1].box.left)) {
                return true;
            }
        }
        return false;
    });
}

// Whether each text of the upper line lines up with one of the lower line.
bool standOver(const std::vector<Segment> &upper, const std::vector<Segment> &lower)
{
    return std::all_of(upper.begin(), upper.end(), [&lower](const Segment &text) {
        return std::any_of(lower.begin(), lower.end(), [&text](const Segment &other) { return linesUp(text, other); });
    });
}

bool isNumber(const Segment &text)
{
    return looksNumeric(joinedText(text.words));
}

// Whether the lower line is one more row below the upper one: it has numbers, and nearly all of its texts line up.
bool isRowBelow(const std::vector<Segment> &upper, const std::vector<Segment> &lower)
{
    std::size_t aligned = 0;
    for (const Segment &text : lower) {
        aligned +=
            std::any_of(upper.begin(), upper.end(), [&text](const Segment &other) { return linesUp(other, text); }) ? 1
                                                                                                                    : 0;
    }
    return lower.size() > 1 && aligned > 1 && aligned + 1 >= lower.size() &&
           std::any_of(lower.begin() + 1, lower.end(), isNumber);
}

// Ranges of neighbouring lines nearly all of which have wide gaps.
std::vector<LineRange> candidateRanges(
    const std::vector<TextLine> &lines, const std::vector<std::vector<Segment>> &segments,
    const std::vector<Rule> &horizontal)
{
    std::vector<LineRange> ranges;
    const auto isMulti = [&](std::size_t i) { return segments[i].size() >= 2 && !isListLine(segments[i]); };
    // Whether rows like those up to `last` follow, at most below the heading of a group.
    const auto goesOn = [&](std::size_t last, std::size_t next) {
        const std::size_t row = next < lines.size() && !isMulti(next) ? next + 1 : next;
        for (std::size_t i = last + 1; i <= row && i < lines.size(); ++i) {
            if (lines[i].baseline - lines[i - 1].baseline > thresholds.maxAlignedStep * lines[i].size) {
                return false;
            }
        }
        return row < lines.size() && isMulti(row) && isRowBelow(segments[last], segments[row]) &&
               (row == next || std::abs(segments[next].front().box.left - segments[last].front().box.left) <=
                                   thresholds.maxOutdent * lines[next].size);
    };
    for (std::size_t i = 0; i < lines.size();) {
        if (!isMulti(i)) {
            ++i;
            continue;
        }
        LineRange range{i, i};
        std::size_t singles = 0;
        std::size_t wrapped = 0;
        for (std::size_t j = i + 1; j < lines.size(); ++j) {
            double reach = thresholds.maxRowStep;
            if (isAligned(segments[range.last], segments[j])) {
                reach = thresholds.maxAlignedStep;
            }
            if (hasRuleBetween(horizontal, lines[j - 1], lines[j])) {
                reach = std::max(reach, thresholds.maxRuledStep);
            }
            if (lines[j].baseline - lines[j - 1].baseline > reach * std::max(lines[j].size, lines[j - 1].size) &&
                !goesOn(range.last, j)) {
                break;
            }
            if (isMulti(j)) {
                range.last = j;
                singles = wrapped = 0;
            } else if (staysInCells(segments[range.last], segments[j]) && ++wrapped <= thresholds.maxWrapped) {
                continue;
            } else if (++singles > thresholds.maxSingles) {
                break;
            }
        }
        const std::size_t floor = ranges.empty() ? 0 : ranges.back().last + 1;
        const auto isBesideKeys = [&](const Segment &text) {
            return std::any_of(
                segments.begin() + static_cast<std::ptrdiff_t>(range.first),
                segments.begin() + static_cast<std::ptrdiff_t>(range.last) + 1,
                [&text](const auto &row) { return row.size() > 1 && row.front().box.right < text.box.left; });
        };
        const auto isHead = [&](std::size_t upper) {
            const bool wraps =
                lines[upper + 1].baseline - lines[upper].baseline <= thresholds.maxWrapStep * lines[upper].size;
            return isHeadingOver(lines[upper], lines[upper + 1], segments[upper + 1], horizontal) ||
                   isCloseHead(lines[upper], lines[upper + 1], segments[upper + 1]) ||
                   (wraps && isBesideKeys(segments[upper].front()) && standOver(segments[upper], segments[upper + 1]));
        };
        while (range.first > floor && isHead(range.first - 1)) {
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
/// Text lines as a table sees them: without leaders, and with typed lines among the rules.
struct CleanLines
{
    CleanLines(const std::vector<TextLine> &all, const Rulings &drawn) : rulings(drawn)
    {
        for (std::size_t i = 0; i < all.size(); ++i) {
            const std::vector<Rule> typed = typedRules(all[i]);
            rulings.horizontal.insert(rulings.horizontal.end(), typed.begin(), typed.end());
            TextLine line = typed.empty() ? withoutLeaders(all[i]) : TextLine();
            if (!line.words.empty()) {
                lines.push_back(std::move(line));
                places.push_back(i);
                leaders.push_back(leadsToOneText(all[i]) ? 1 : 0);
            }
        }
    }

    std::vector<TextLine> lines;
    std::vector<std::size_t> places; ///< of the lines among all
    std::vector<char> leaders;       ///< whether the line had one, to a single text
    Rulings rulings;
};

TextGrid gridOf(const CleanLines &clean, const LineRange &range)
{
    const auto first = clean.lines.begin() + static_cast<std::ptrdiff_t>(range.first);
    return TextGrid({first, first + static_cast<std::ptrdiff_t>(range.size())}, clean.rulings);
}

bool isSingleText(const CleanLines &clean, std::size_t line)
{
    return cellTexts(clean.lines[line]).size() == 1;
}

// The lines at which another table with a head may begin: below a gap or at a title.
std::vector<LineRange> lowerParts(const CleanLines &clean, const LineRange &range)
{
    std::vector<double> steps;
    for (std::size_t i = range.first + 1; i <= range.last; ++i) {
        steps.push_back(clean.lines[i].baseline - clean.lines[i - 1].baseline);
    }
    const double usual = median(steps);
    std::vector<LineRange> parts;
    for (std::size_t i = range.first + thresholds.minLinesOfPart; i + thresholds.minLinesOfPart <= range.last + 1;
         ++i) {
        const bool title = isSingleText(clean, i);
        if ((title && isSingleText(clean, i - 1)) ||
            (!title && steps[i - range.first - 1] < thresholds.minPartGap * usual)) {
            continue;
        }
        std::size_t first = i;
        while (first < range.last && isSingleText(clean, first)) {
            ++first;
        }
        if (range.last - first + 1 >= thresholds.minLinesOfPart) {
            parts.push_back({i, range.last});
        }
    }
    return parts;
}

// Where a range of lines is two tables, one above the other, whose columns are not the same: the first line of the
// lower one, or of the title above it. The end of the range otherwise. One of the two has hardly any conflicts by
// itself (the other may be several tables), and both together have fewest.
std::size_t beginOfOtherTable(const CleanLines &clean, const LineRange &range, const TextGrid &whole)
{
    std::size_t begin = range.last + 1;
    std::size_t fewest = whole.conflicts(0, range.size());
    const auto improves = [](std::size_t before, std::size_t after) {
        return before >= thresholds.minConflicts &&
               static_cast<double>(after) <= thresholds.maxConflictsOfPart * static_cast<double>(before);
    };
    for (const LineRange &lower : lowerParts(clean, range)) {
        LineRange below = lower;
        while (isSingleText(clean, below.first)) {
            ++below.first;
        }
        const TextGrid grid = gridOf(clean, below);
        if (!grid.startsWithHead() || grid.hasNumbers() != whole.hasNumbers()) {
            continue;
        }
        const LineRange upper{range.first, lower.first - 1};
        const std::size_t ofUpper = gridOf(clean, upper).conflicts(0, upper.size());
        const std::size_t ofLower = grid.conflicts(0, below.size());
        // Texts that wrap are apt to leave columns empty: of tables of words, both parts must be better.
        const bool partImproves =
            whole.hasNumbers() && (improves(whole.conflicts(0, upper.size()), ofUpper) ||
                                   improves(whole.conflicts(upper.size(), range.size()), ofLower));
        if (ofUpper + ofLower < fewest &&
            (partImproves || improves(whole.conflicts(0, range.size()), ofUpper + ofLower))) {
            fewest = ofUpper + ofLower;
            begin = lower.first;
        }
    }
    return begin;
}

// Adds the tables in a range of lines, without lines of text around and among them. Returns whether there is one.
bool addTables(std::vector<UnruledTable> &tables, const CleanLines &clean, LinesOf linesOf, LineRange range)
{
    for (;;) {
        if (range.last < range.first || range.last - range.first + 1 < thresholds.minLines) {
            return false;
        }
        const auto first = static_cast<std::ptrdiff_t>(range.first);
        const auto end = static_cast<std::ptrdiff_t>(range.last) + 1;
        const TextGrid grid = gridOf(clean, range);
        const std::size_t before = grid.linesBefore();
        const std::size_t after = before == 0 ? grid.linesAfter() : 0;
        if (before + after > range.last - range.first) {
            return false;
        }
        if (before + after > 0) {
            const LineRange inner{range.first + before, range.last - after};
            if (before >= thresholds.minLinesOfPart &&
                addTables(tables, clean, linesOf, {range.first, inner.first - 1})) {
                range = inner; // what is above this table is another one
                continue;
            }
            for (std::size_t i = range.first; linesOf == LinesOf::Page && i <= range.last; ++i) {
                const bool outside = i < inner.first || i > inner.last;
                if (outside && cellTexts(clean.lines[i]).size() > 1) {
                    return false; // texts side by side that are no cells: columns of the page
                }
            }
            range = inner;
            continue;
        }
        const std::size_t text = range.first + grid.textAmongRows();
        if (text > range.first && text < range.last) {
            const bool above = addTables(tables, clean, linesOf, {range.first, text - 1});
            return addTables(tables, clean, linesOf, {text + 1, range.last}) || above;
        }
        if (grid.conflicts(0, range.size()) >=
            std::max(thresholds.minConflicts, range.size() / thresholds.maxLinesForConflict)) {
            const std::size_t other = beginOfOtherTable(clean, range, grid);
            if (other <= range.last) {
                std::size_t below = other;
                while (isSingleText(clean, below)) {
                    ++below;
                }
                const bool above = addTables(tables, clean, linesOf, {range.first, other - 1});
                return addTables(tables, clean, linesOf, {below, range.last}) || above;
            }
        }
        const auto leaderLines = std::count(clean.leaders.begin() + first, clean.leaders.begin() + end, 1);
        const auto rows = static_cast<double>(grid.linesOfSeveralTexts());
        const bool contents = !grid.isRuled() && static_cast<double>(leaderLines) > thresholds.maxLeaderLines * rows;
        const bool columns = grid.isIndex() || (linesOf == LinesOf::Page && !grid.isDivided() &&
                                                (!grid.hasNumbers() || grid.holdsProse()));
        if (contents || columns || !grid.looksLikeTable()) {
            return false;
        }
        tables.push_back({grid.tableWords(), clean.places[range.first], clean.places[range.last]});
        return true;
    }
}

// Adds the tables in the parts of a range above and below its widest gap, if it has one.
void addParts(
    std::vector<UnruledTable> &tables, const CleanLines &clean, LinesOf linesOf, LineRange range, std::size_t depth)
{
    std::vector<double> steps;
    std::size_t widest = range.first + 1;
    const auto step = [&clean](std::size_t lower) {
        return clean.lines[lower].baseline - clean.lines[lower - 1].baseline;
    };
    for (std::size_t i = range.first + 1; i <= range.last; ++i) {
        steps.push_back(step(i));
        widest = step(i) > step(widest) ? i : widest;
    }
    if (depth == thresholds.maxParts || steps.size() + 1 < 2 * thresholds.minLinesOfPart ||
        step(widest) < thresholds.minPartGap * median(std::move(steps))) {
        return;
    }
    for (const LineRange &part : {LineRange{range.first, widest - 1}, LineRange{widest, range.last}}) {
        if (part.last - part.first + 1 >= thresholds.minLinesOfPart && !addTables(tables, clean, linesOf, part)) {
            addParts(tables, clean, linesOf, part, depth + 1);
        }
    }
}

} // namespace

std::vector<UnruledTable> findUnruledTables(const std::vector<TextLine> &lines, const Rulings &rulings, LinesOf linesOf)
{
    const CleanLines clean(lines, rulings);
    std::vector<std::vector<Segment>> segments;
    segments.reserve(clean.lines.size());
    for (const TextLine &line : clean.lines) {
        segments.push_back(cellTexts(line));
    }
    std::vector<UnruledTable> tables;
    for (const LineRange &range : candidateRanges(clean.lines, segments, clean.rulings.horizontal)) {
        if (addTables(tables, clean, linesOf, range) || linesOf == LinesOf::Page) {
            continue;
        }
        const std::size_t before = tables.size();
        for (const LineRange &part : partsBetweenRules(clean.lines, range, clean.rulings.horizontal)) {
            addTables(tables, clean, linesOf, part);
        }
        if (tables.size() == before) {
            addParts(tables, clean, linesOf, range, 0);
        }
    }
    return tables;
}

std::vector<UnruledTable> tablesOfLines(const std::vector<TextLine> &lines, const Rulings &rulings)
{
    const CleanLines clean(lines, rulings);
    std::vector<UnruledTable> tables;
    if (!clean.lines.empty()) {
        addTables(tables, clean, LinesOf::Column, {0, clean.lines.size() - 1});
    }
    return tables;
}

} // namespace quorra::model
