// SPDX-License-Identifier: GPL-3.0-or-later
#include "sanitised_page.h"

#include <cmath>
#include <utility>

namespace quorra::model {

namespace {

using sanitisedPage::limits;

bool isFinite(const Box &box)
{
    return std::isfinite(box.left) && std::isfinite(box.top) && std::isfinite(box.right) && std::isfinite(box.bottom);
}

double limited(double value, double min, double max)
{
    return std::isnan(value) ? min : std::clamp(value, min, max);
}

double validCoordinate(double value)
{
    return std::isnan(value) ? 0 : std::clamp(value, -limits.maxCoordinate, limits.maxCoordinate);
}

Box validBox(const Box &box)
{
    const auto [left, right] = std::minmax({validCoordinate(box.left), validCoordinate(box.right)});
    const auto [top, bottom] = std::minmax({validCoordinate(box.top), validCoordinate(box.bottom)});
    return {left, top, right, bottom};
}

template <typename Mark>
void sanitiseBoxes(std::vector<Mark> &marks)
{
    marks.erase(
        std::remove_if(marks.begin(), marks.end(), [](const Mark &mark) { return !isFinite(mark.box); }), marks.end());
    for (Mark &mark : marks) {
        mark.box = validBox(mark.box);
    }
}

bool isStraight(const Rule &rule)
{
    return isFinite({rule.x1, rule.y1, rule.x2, rule.y2}) && (rule.x1 == rule.x2 || rule.y1 == rule.y2);
}

void sanitiseRules(std::vector<Rule> &rules)
{
    rules.erase(
        std::remove_if(rules.begin(), rules.end(), [](const Rule &rule) { return !isStraight(rule); }), rules.end());
    for (Rule &rule : rules) {
        const Box box = validBox({rule.x1, rule.y1, rule.x2, rule.y2});
        rule = {box.left,   box.top, box.right, box.bottom, limited(rule.width, limits.minSize, limits.maxCoordinate),
                rule.colour};
    }
}

void sanitiseWords(std::vector<RawWord> &words)
{
    const auto isEmpty = [](const RawWord &word) {
        return std::all_of(word.text.begin(), word.text.end(), [](QChar c) { return c.isSpace() || c.isNull(); });
    };
    words.erase(std::remove_if(words.begin(), words.end(), isEmpty), words.end());
    for (RawWord &word : words) {
        word.box = validBox(word.box);
        word.baseline = validCoordinate(word.baseline);
        word.style.size = limited(word.style.size, limits.minSize, limits.maxFontSize);
    }
}

} // namespace

RawPage sanitised(RawPage page)
{
    page.width = limited(page.width, limits.minPageSide, limits.maxCoordinate);
    page.height = limited(page.height, limits.minPageSide, limits.maxCoordinate);
    sanitiseWords(page.words);
    sanitiseRules(page.rules);
    sanitiseBoxes(page.fills);
    sanitiseBoxes(page.pictures);
    sanitiseBoxes(page.ink);
    return page;
}

} // namespace quorra::model
