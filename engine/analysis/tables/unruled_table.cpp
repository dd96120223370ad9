// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/unruled_table.h"

#include "paragraphs/list_mark.h"
#include "tables/text_grid.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr double cellGap = 0.75;       // font sizes between two cells
constexpr double farRows = 2.6;        // font sizes between the baselines of rows of one table
constexpr std::size_t mostSingles = 2; // rows of one piece in a row inside a table (group headings, wrapped cells)

struct Stretch
{
    std::size_t first = 0;
    std::size_t last = 0;
};

bool isLeader(const QString &text)
{
    const auto dots = text.count(QLatin1Char('.'));
    return dots >= 4 && dots * 2 >= text.size();
}

// Rows with "....." or ". . . . ." in them: a table of contents reads better as lines.
bool hasLeader(const TextLine &row)
{
    int loneDots = 0;
    for (const RawWord *word : row.words) {
        loneDots += word->text == QLatin1String(".") ? 1 : 0;
        if (isLeader(word->text)) {
            return true;
        }
    }
    return loneDots >= 4;
}

bool isListLine(const std::vector<Segment> &segments)
{
    QString mark;
    for (const RawWord *word : segments.front().words) {
        mark += word->text;
    }
    return segments.size() == 2 && isListMark(mark);
}

bool hasRuleBetween(const std::vector<Rule> &horizontal, const TextLine &upper, const TextLine &lower)
{
    return std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
        return rule.y1 > upper.box.centreY() && rule.y1 < lower.box.centreY() && rule.x2 > upper.box.left &&
               rule.x1 < upper.box.right;
    });
}

// A heading over several columns has a line of its own under it, shorter than the table is wide.
bool isHeadingOver(const TextLine &upper, const TextLine &lower, const std::vector<Rule> &horizontal)
{
    const double whole = std::max(lower.box.right, upper.box.right) - std::min(lower.box.left, upper.box.left);
    return lower.baseline - upper.baseline < 2 * lower.size &&
           std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
               return rule.y1 > upper.box.centreY() && rule.y1 < lower.box.centreY() && rule.x1 < upper.box.centreX() &&
                      rule.x2 > upper.box.centreX() && rule.length() < 0.8 * whole;
           });
}

// The last lines of a wrapped cell stand alone under it, in its column.
bool wrapsOn(const std::vector<Segment> &upper, const std::vector<Segment> &lower, double step, double size)
{
    if (lower.size() != 1 || step > 1.3 * size || !lower.front().words.front()->text.front().isLower()) {
        return false;
    }
    for (std::size_t i = 0; i < upper.size(); ++i) {
        const double room = i + 1 < upper.size() ? upper[i + 1].box.left : upper[i].box.right + size;
        if (std::abs(upper[i].box.left - lower.front().box.left) < size && lower.front().box.right < room) {
            return true;
        }
    }
    return false;
}

// Stretches of rows close to one another in which nearly all are cut by wide gaps.
std::vector<Stretch> candidateStretches(
    const std::vector<TextLine> &rows, const std::vector<std::vector<Segment>> &segments,
    const std::vector<Rule> &horizontal)
{
    std::vector<Stretch> stretches;
    const auto isMulti = [&](std::size_t i) { return segments[i].size() >= 2 && !isListLine(segments[i]); };
    for (std::size_t i = 0; i < rows.size();) {
        if (!isMulti(i)) {
            ++i;
            continue;
        }
        Stretch stretch{i, i};
        std::size_t singles = 0;
        for (std::size_t j = i + 1; j < rows.size(); ++j) {
            const double reach = hasRuleBetween(horizontal, rows[j - 1], rows[j]) ? 2 * farRows : farRows;
            if (rows[j].baseline - rows[j - 1].baseline > reach * std::max(rows[j].size, rows[j - 1].size)) {
                break;
            }
            if (isMulti(j)) {
                stretch.last = j;
                singles = 0;
            } else if (++singles > mostSingles) {
                break;
            }
        }
        const std::size_t floor = stretches.empty() ? 0 : stretches.back().last + 1;
        while (stretch.first > floor && isHeadingOver(rows[stretch.first - 1], rows[stretch.first], horizontal)) {
            --stretch.first;
        }
        std::size_t next = stretch.last + 1;
        while (next < rows.size() && wrapsOn(
                                         segments[stretch.last], segments[next],
                                         rows[next].baseline - rows[next - 1].baseline, rows[next].size)) {
            ++next;
        }
        stretch.last = next - 1;
        stretches.push_back(stretch);
        i = stretch.last + 1;
    }
    return stretches;
}

std::size_t count(const std::vector<TextLine> &rows, const Stretch &s, bool (*has)(const TextLine &))
{
    return static_cast<std::size_t>(std::count_if(
        rows.begin() + static_cast<std::ptrdiff_t>(s.first), rows.begin() + static_cast<std::ptrdiff_t>(s.last) + 1,
        has));
}

bool isFixedPitch(const TextLine &row)
{
    return row.words.front()->style.fixedPitch;
}

// The parts of a stretch between lines that run across it. What stands above a table and below it may be set in columns
// too; then the whole is no table, but one of its parts is.
std::vector<Stretch>
partsBetweenRules(const std::vector<TextLine> &rows, const Stretch &stretch, const std::vector<Rule> &horizontal)
{
    constexpr std::size_t fewestRows = 3;
    const auto parts = [&](std::size_t lower) {
        const Box both = united(rows[lower - 1].box, rows[lower].box);
        return std::any_of(horizontal.begin(), horizontal.end(), [&](const Rule &rule) {
            return rule.y1 > rows[lower - 1].box.centreY() && rule.y1 < rows[lower].box.centreY() &&
                   std::min(rule.x2, both.right) - std::max(rule.x1, both.left) > 0.9 * both.width();
        });
    };
    std::vector<Stretch> result;
    Stretch part{stretch.first, stretch.first};
    for (std::size_t i = stretch.first + 1; i <= stretch.last + 1; ++i) {
        if (i <= stretch.last && !parts(i)) {
            part.last = i;
            continue;
        }
        if (part.last - part.first + 1 >= fewestRows) {
            result.push_back(part);
        }
        part = {i, i};
    }
    return result;
}

} // namespace

std::vector<UnruledTable> findUnruledTables(const std::vector<TextLine> &rows, const std::vector<Rule> &horizontal)
{
    std::vector<std::vector<Segment>> segments;
    segments.reserve(rows.size());
    for (const TextLine &row : rows) {
        segments.push_back(segmentsOf(row, cellGap));
    }
    std::vector<UnruledTable> tables;
    const auto add = [&](const Stretch &stretch) {
        const std::size_t length = stretch.last - stretch.first + 1;
        if (length < 2 || 3 * count(rows, stretch, hasLeader) > length ||
            2 * count(rows, stretch, isFixedPitch) > length) {
            return true; // something else, and so are its parts
        }
        TextGrid grid(
            {rows.begin() + static_cast<std::ptrdiff_t>(stretch.first),
             rows.begin() + static_cast<std::ptrdiff_t>(stretch.last) + 1},
            horizontal);
        if (!grid.looksLikeTable()) {
            return false;
        }
        tables.push_back({grid.tableWords(), stretch.first, stretch.last});
        return true;
    };
    for (const Stretch &stretch : candidateStretches(rows, segments, horizontal)) {
        if (!add(stretch)) {
            const std::vector<Stretch> parts = partsBetweenRules(rows, stretch, horizontal);
            std::for_each(parts.begin(), parts.end(), add);
        }
    }
    return tables;
}

} // namespace quorra::model
