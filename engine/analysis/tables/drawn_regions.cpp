// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/drawn_regions.h"

#include "tables/grid_columns.h"
#include "tables/leaders.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace quorra::model {

namespace {

using drawnRegions::thresholds;

/// Lines across with the same ends, from top to bottom.
struct Stack
{
    double left = 0;
    double right = 0;
    std::vector<double> ys;
    bool filled = true; ///< whether they are edges of fills

    Box box() const { return {left, ys.front(), right, ys.back()}; }
};

std::vector<Rule> joinedAlong(std::vector<Rule> rules)
{
    std::sort(rules.begin(), rules.end(), [](const Rule &a, const Rule &b) {
        return a.y1 != b.y1 ? a.y1 < b.y1 : a.x1 < b.x1;
    });
    std::vector<Rule> across;
    for (const Rule &rule : rules) {
        if (!across.empty() && std::abs(across.back().y1 - rule.y1) <= rulings::thresholds.sameLine &&
            rule.x1 - across.back().x2 <= thresholds.maxGapAlong) {
            across.back().x2 = std::max(across.back().x2, rule.x2);
        } else {
            across.push_back(rule);
        }
    }
    return across;
}

std::vector<Stack> stacksOf(const std::vector<Rule> &rules)
{
    std::vector<Stack> stacks;
    for (const Rule &rule : joinedAlong(rules)) {
        if (rule.length() < thresholds.minStackWidth) {
            continue;
        }
        const auto stack = std::find_if(stacks.begin(), stacks.end(), [&rule](const Stack &s) {
            return std::abs(s.left - rule.x1) <= thresholds.sameEnd &&
                   std::abs(s.right - rule.x2) <= thresholds.sameEnd && rule.y1 - s.ys.back() <= thresholds.maxBand;
        });
        if (stack != stacks.end()) {
            stack->ys.push_back(rule.y1);
            stack->filled = stack->filled && rule.width <= 0;
        } else {
            stacks.push_back({rule.x1, rule.x2, {rule.y1}, rule.width <= 0});
        }
    }
    return stacks;
}

bool isRow(const TextLine &line)
{
    return cellTexts(line).size() > 1;
}

// Whether what is between two lines belongs to no table: running text, or a title, or nothing, with much blank space.
bool dividesTables(const std::vector<TextLine> &lines, const Stack &stack, double top, double bottom)
{
    std::size_t all = 0;
    std::size_t divided = 0;
    double width = 0;
    double blank = bottom - top;
    double size = 0;
    for (const TextLine &line : lines) {
        if (line.box.centreY() > top && line.box.centreY() < bottom) {
            ++all;
            divided += isRow(line) ? 1 : 0;
            width += line.box.width();
            blank -= line.size;
        }
        size = std::max(size, line.size);
    }
    const bool prose = all >= thresholds.minProseLines &&
                       static_cast<double>(divided) <= thresholds.maxDividedLines * static_cast<double>(all) &&
                       width >= thresholds.minProseWidth * (stack.right - stack.left) * static_cast<double>(all);
    return prose || (divided == 0 && all <= thresholds.maxTitleLines && blank >= thresholds.minBlank * size);
}

// Whether each text of the upper line is over texts of the lower one, which has hardly more of them.
bool isHeadOf(const TextLine &upper, const TextLine &lower)
{
    const std::vector<Segment> heads = cellTexts(upper);
    const std::vector<Segment> texts = cellTexts(lower);
    return heads.size() > 1 && 2 * heads.size() >= texts.size() &&
           std::all_of(heads.begin(), heads.end(), [&texts](const Segment &head) {
               return std::any_of(texts.begin(), texts.end(), [&head](const Segment &text) {
                   return head.box.left < text.box.right && head.box.right > text.box.left;
               });
           });
}

// Extends a stack by the lines of cells right above and below it, as far as the neighbouring lines across.
Box withRowsAround(Box box, const std::vector<TextLine> &lines, bool striped, double above, double below)
{
    double reached = box.bottom;
    for (const TextLine &line : lines) {
        if (line.box.top <= box.bottom) {
            continue;
        }
        const double step = (line.box.top - reached) / line.size;
        reached = line.box.bottom;
        const bool wraps = line.box.left > box.left + thresholds.maxKeyColumn * box.width();
        if (step > thresholds.maxStep || line.box.bottom > below ||
            (!isRow(line) && line.box.width() > thresholds.maxCellLine * box.width())) {
            break;
        }
        if (isRow(line) || (wraps && step <= thresholds.maxWrapStep)) {
            box.bottom = line.box.bottom;
        }
    }
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        if (line->box.top > above && line->box.bottom < box.top &&
            line->box.bottom > box.top - thresholds.maxStep * line->size && line != lines.rbegin() &&
            (striped ? isRow(*line) : isHeadOf(*line, *(line - 1)))) {
            box.top = line->box.top;
        }
    }
    return box;
}

// Where only the columns beside the keys are between lines, the texts that stand left of most rows are part of the
// table, unless they are running text.
void takeInKeys(Box &box, const std::vector<TextLine> &lines, const WordRefs &words)
{
    WordRefs beside;
    std::copy_if(words.begin(), words.end(), std::back_inserter(beside), [&box](const RawWord *word) {
        const Box body = bodyOf(*word);
        return word->rotation == 0 && body.centreX() < box.left && body.centreY() > box.top &&
               body.centreY() < box.bottom;
    });
    std::vector<Segment> keys;
    double right = 0;
    for (const TextLine &line : textLinesOf(std::move(beside))) {
        const TextLine text = withoutLeaders(line);
        if (!text.words.empty()) {
            keys.push_back(segmentsOf(text, thresholds.maxKeyGap).back());
            right = std::max(right, keys.back().box.right);
        }
    }
    std::size_t rows = 0;
    std::size_t keyed = 0;
    double left = box.left;
    std::size_t full = 0;
    for (const TextLine &line : lines) {
        if (!box.contains(line.box.centreX(), line.box.centreY()) || line.box.top < box.top) {
            continue;
        }
        ++rows;
        const auto key = std::find_if(keys.begin(), keys.end(), [&line](const Segment &k) {
            return std::abs(k.box.bottom - line.box.bottom) <= thresholds.sameBaseline * line.size;
        });
        if (key != keys.end()) {
            ++keyed;
            full += key->box.right >= right - thresholds.maxRagged * key->box.width() ? 1 : 0;
            left = std::min(left, key->box.left);
        }
    }
    const bool prose = static_cast<double>(full) >= thresholds.minFullKeys * static_cast<double>(keyed);
    if (rows > 1 && static_cast<double>(keyed) >= thresholds.minKeys * static_cast<double>(rows) && !prose &&
        box.left - left <= thresholds.maxKeyWidth * box.width()) {
        box.left = left;
    }
}

// Whether the lines are the edges of a fill with texts side by side: the head of a table.
bool isFilledHead(const Stack &stack, const std::vector<TextLine> &lines)
{
    return stack.filled && std::any_of(lines.begin(), lines.end(), [&stack](const TextLine &line) {
               return stack.box().contains(line.box.centreX(), line.box.centreY()) && isRow(line);
           });
}

} // namespace

std::vector<Box> tableRegions(const Rulings &dividers, const WordRefs &words)
{
    std::vector<Box> regions;
    if (dividers.horizontal.size() > thresholds.maxRules) {
        return regions;
    }
    for (const Stack &stack : stacksOf(dividers.horizontal)) {
        if (stack.ys.size() < (stack.filled ? thresholds.minStackRules - 1 : thresholds.minStackRules)) {
            continue;
        }
        WordRefs across;
        std::copy_if(words.begin(), words.end(), std::back_inserter(across), [&stack](const RawWord *word) {
            const double x = word->box.centreX();
            return word->rotation == 0 && x > stack.left && x < stack.right;
        });
        const std::vector<TextLine> lines = textLinesOf(std::move(across));
        Stack part{stack.left, stack.right, {stack.ys.front()}, stack.filled};
        double above = 0;
        const auto finish = [&](double below) {
            if ((part.ys.size() >= thresholds.minStackRules || (part.ys.size() > 1 && isFilledHead(part, lines))) &&
                part.box().height() > rulings::thresholds.minFillSide) {
                Box box = withRowsAround(part.box(), lines, part.filled, above, below);
                takeInKeys(box, lines, words);
                regions.push_back(box);
            }
            above = part.ys.back();
            part.ys.clear();
        };
        for (std::size_t i = 1; i < stack.ys.size(); ++i) {
            if (dividesTables(lines, stack, stack.ys[i - 1], stack.ys[i])) {
                finish(stack.ys[i]);
            }
            part.ys.push_back(stack.ys[i]);
        }
        finish(std::numeric_limits<double>::max());
    }
    return regions;
}

} // namespace quorra::model
