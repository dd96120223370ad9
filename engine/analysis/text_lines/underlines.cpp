// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/underlines.h"

#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace quorra::model {

namespace {

using underlines::thresholds;

/// A line with all the rules that it is made of.
struct DrawnLine
{
    double left = 0;
    double right = 0;
    double y = 0;
    double width = 0;
    std::vector<std::size_t> rules; ///< indexes
};

std::vector<DrawnLine> drawnLines(const std::vector<Rule> &rules)
{
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (rules[i].isHorizontal() && rules[i].x2 > rules[i].x1) {
            order.push_back(i);
        }
    }
    std::sort(order.begin(), order.end(), [&rules](std::size_t a, std::size_t b) {
        return std::pair(rules[a].y1, rules[a].x1) < std::pair(rules[b].y1, rules[b].x1);
    });
    std::vector<DrawnLine> lines;
    for (const std::size_t index : order) {
        const Rule &rule = rules[index];
        const bool continues = !lines.empty() && std::abs(lines.back().y - rule.y1) <= thresholds.sameHeight &&
                               rule.x1 - lines.back().right <= thresholds.maxPieceGap && rule.x1 >= lines.back().left;
        if (!continues) {
            lines.push_back({rule.x1, rule.x2, rule.y1, rule.width, {}});
        }
        lines.back().right = std::max(lines.back().right, rule.x2);
        lines.back().width = std::max(lines.back().width, rule.width);
        lines.back().rules.push_back(index);
    }
    return lines;
}

bool meetsVerticalRule(const DrawnLine &line, const std::vector<Rule> &rules)
{
    return std::any_of(rules.begin(), rules.end(), [&line](const Rule &rule) {
        return !rule.isHorizontal() && rule.x1 >= line.left - 1 && rule.x1 <= line.right + 1 && rule.y1 <= line.y + 1 &&
               rule.y2 >= line.y - 1;
    });
}

bool hasLetter(const std::vector<RawWord *> &words)
{
    return std::any_of(words.begin(), words.end(), [](const RawWord *word) {
        return std::any_of(word->text.begin(), word->text.end(), [](QChar c) { return c.isLetter(); });
    });
}

/// Whether the words fill the line, which lies under or runs through them.
bool fill(std::vector<RawWord *> &words, const DrawnLine &line)
{
    if (words.empty() || !hasLetter(words)) {
        return false;
    }
    std::sort(words.begin(), words.end(), [](const RawWord *a, const RawWord *b) { return a->box.left < b->box.left; });
    double right = words.front()->box.left;
    for (const RawWord *word : words) {
        if (word->box.left - right > thresholds.maxWordGap * word->style.size) {
            return false;
        }
        right = std::max(right, word->box.right);
    }
    const double overhang = thresholds.maxOverhang * words.front()->style.size;
    return line.left >= words.front()->box.left - overhang && line.right <= right + overhang;
}

/// Whether text follows so closely below the line that it is the bar of a fraction.
bool isFractionBar(const DrawnLine &line, const std::vector<RawWord *> &byBaseline, double largest)
{
    const double reach = (textLines::thresholds.capHeight + thresholds.minGapBelow) * largest;
    auto at = std::upper_bound(byBaseline.begin(), byBaseline.end(), line.y, [](double baseline, const RawWord *word) {
        return baseline < word->baseline;
    });
    for (; at != byBaseline.end() && (*at)->baseline <= line.y + reach; ++at) {
        const Box body = bodyOf(**at);
        const double size = (*at)->style.size;
        const double overhang = thresholds.maxOverhang * size;
        if (body.top - line.y < thresholds.minGapBelow * size && body.centreY() > line.y &&
            body.left >= line.left - overhang && body.right <= line.right + overhang) {
            return true;
        }
    }
    return false;
}

} // namespace

void underlineWords(RawPage &page)
{
    if (page.rules.empty() || page.rules.size() > thresholds.maxRules) {
        return;
    }
    std::vector<RawWord *> byBaseline;
    double largest = 0;
    for (RawWord &word : page.words) {
        if (word.rotation == 0) {
            byBaseline.push_back(&word);
            largest = std::max(largest, word.style.size);
        }
    }
    std::sort(byBaseline.begin(), byBaseline.end(), [](const RawWord *a, const RawWord *b) {
        return a->baseline < b->baseline;
    });
    std::vector<bool> used(page.rules.size(), false);
    for (const DrawnLine &line : drawnLines(page.rules)) {
        std::vector<RawWord *> above;
        std::vector<RawWord *> through;
        auto at = std::lower_bound(
            byBaseline.begin(), byBaseline.end(), line.y - thresholds.maxDrop * largest,
            [](const RawWord *word, double baseline) { return word->baseline < baseline; });
        for (; at != byBaseline.end() && (*at)->baseline <= line.y + thresholds.maxRise * largest; ++at) {
            RawWord *word = *at;
            const double size = word->style.size;
            const double drop = line.y - word->baseline;
            const double covered = std::min(line.right, word->box.right) - std::max(line.left, word->box.left);
            if (line.width > thresholds.maxWidth * size || covered < thresholds.minCovered * word->box.width()) {
                continue;
            }
            if (drop >= 0 && drop <= thresholds.maxDrop * size) {
                above.push_back(word);
            } else if (-drop >= thresholds.minRise * size && -drop <= thresholds.maxRise * size) {
                through.push_back(word);
            }
        }
        const bool underlines = fill(above, line) && !isFractionBar(line, byBaseline, largest);
        const bool strikes = !underlines && fill(through, line);
        if ((!underlines && !strikes) || meetsVerticalRule(line, page.rules)) {
            continue;
        }
        for (RawWord *word : underlines ? above : through) {
            (underlines ? word->style.underlined : word->style.struckThrough) = true;
        }
        for (const std::size_t index : line.rules) {
            used[index] = true;
        }
    }
    std::vector<Rule> kept;
    for (std::size_t i = 0; i < page.rules.size(); ++i) {
        if (!used[i]) {
            kept.push_back(page.rules[i]);
        }
    }
    page.rules = std::move(kept);
}

} // namespace quorra::model
