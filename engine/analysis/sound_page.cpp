// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound_page.h"

#include <cmath>
#include <utility>

namespace quorra::model {

namespace {

constexpr double farthest = 100000; // points: seven times the largest page that PDF allows
constexpr double smallestType = 0.01;
constexpr double largestType = 10000;
constexpr double smallestPage = 1;

bool isKnown(const Box &box)
{
    return std::isfinite(box.left) && std::isfinite(box.top) && std::isfinite(box.right) && std::isfinite(box.bottom);
}

double within(double value, double least, double most)
{
    return std::isnan(value) ? least : std::clamp(value, least, most);
}

double place(double value)
{
    return std::isnan(value) ? 0 : std::clamp(value, -farthest, farthest);
}

Box placed(const Box &box)
{
    const auto [left, right] = std::minmax({place(box.left), place(box.right)});
    const auto [top, bottom] = std::minmax({place(box.top), place(box.bottom)});
    return {left, top, right, bottom};
}

template <typename Mark>
void placeBoxes(std::vector<Mark> &marks)
{
    marks.erase(
        std::remove_if(marks.begin(), marks.end(), [](const Mark &mark) { return !isKnown(mark.box); }), marks.end());
    for (Mark &mark : marks) {
        mark.box = placed(mark.box);
    }
}

bool isStraight(const Rule &rule)
{
    return isKnown({rule.x1, rule.y1, rule.x2, rule.y2}) && (rule.x1 == rule.x2 || rule.y1 == rule.y2);
}

void placeRules(std::vector<Rule> &rules)
{
    rules.erase(
        std::remove_if(rules.begin(), rules.end(), [](const Rule &rule) { return !isStraight(rule); }), rules.end());
    for (Rule &rule : rules) {
        const Box box = placed({rule.x1, rule.y1, rule.x2, rule.y2});
        rule = {box.left, box.top, box.right, box.bottom, within(rule.width, smallestType, farthest), rule.colour};
    }
}

void placeWords(std::vector<RawWord> &words)
{
    const auto isBlank = [](const RawWord &word) {
        return std::all_of(word.text.begin(), word.text.end(), [](QChar c) { return c.isSpace() || c.isNull(); });
    };
    words.erase(std::remove_if(words.begin(), words.end(), isBlank), words.end());
    for (RawWord &word : words) {
        word.box = placed(word.box);
        word.baseline = place(word.baseline);
        word.style.size = within(word.style.size, smallestType, largestType);
    }
}

} // namespace

RawPage soundPage(RawPage page)
{
    page.width = within(page.width, smallestPage, farthest);
    page.height = within(page.height, smallestPage, farthest);
    placeWords(page.words);
    placeRules(page.rules);
    placeBoxes(page.fills);
    placeBoxes(page.pictures);
    placeBoxes(page.ink);
    return page;
}

} // namespace quorra::model
