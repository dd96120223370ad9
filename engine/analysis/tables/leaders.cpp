// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/leaders.h"

#include <algorithm>

namespace quorra::model {

namespace {

using leaders::thresholds;

bool isDot(QChar c)
{
    return c == u'.' || c == u'…' || c == u'·';
}

bool isDash(QChar c)
{
    return c == u'-' || c == u'_' || c == u'=' || c == u'–' || c == u'—' || c == u'─';
}

qsizetype dotsAtEnd(const QString &text)
{
    const auto last = std::find_if_not(text.crbegin(), text.crend(), isDot);
    return last - text.crbegin();
}

bool hasLoneDots(const TextLine &line)
{
    return std::count_if(line.words.begin(), line.words.end(), [](const RawWord *word) {
               return dotsAtEnd(word->text) == word->text.size();
           }) >= thresholds.minDots;
}

} // namespace

bool hasLeader(const TextLine &line)
{
    return hasLoneDots(line) || std::any_of(line.words.begin(), line.words.end(), [](const RawWord *word) {
               return dotsAtEnd(word->text) >= thresholds.minDots;
           });
}

bool leadsToOneText(const TextLine &line)
{
    if (!hasLeader(line)) {
        return false;
    }
    TextLine after = line;
    const auto last = std::find_if(line.words.rbegin(), line.words.rend(), [](const RawWord *word) {
        return dotsAtEnd(word->text) == word->text.size() || dotsAtEnd(word->text) >= thresholds.minDots;
    });
    after.words.assign(last.base(), line.words.end());
    return segmentsOf(after, thresholds.maxWordGap).size() <= 1;
}

TextLine withoutLeaders(const TextLine &line)
{
    if (!hasLeader(line)) {
        return line;
    }
    const bool lone = hasLoneDots(line);
    TextLine result = line;
    result.words.clear();
    result.box = {};
    for (const RawWord *word : line.words) {
        const qsizetype dots = dotsAtEnd(word->text);
        if (dots == word->text.size() && (lone || dots >= thresholds.minDots)) {
            continue;
        }
        result.words.push_back(word);
        result.box = united(result.box, bodyOf(*word));
    }
    return result;
}

QString withoutLeaders(const QString &text)
{
    const qsizetype dots = dotsAtEnd(text);
    return dots >= thresholds.minDots ? text.chopped(dots) : text;
}

bool isLeaderOrTypedRule(const QString &text)
{
    return std::all_of(text.begin(), text.end(), isDot) || std::all_of(text.begin(), text.end(), isDash);
}

std::vector<Rule> typedRules(const TextLine &line)
{
    qsizetype dashes = 0;
    std::vector<Rule> rules;
    for (const RawWord *word : line.words) {
        if (!std::all_of(word->text.begin(), word->text.end(), isDash)) {
            return {};
        }
        dashes += word->text.size();
        const double y = bodyOf(*word).centreY();
        rules.push_back({word->box.left, y, word->box.right, y, 0.5, word->style.colour});
    }
    return dashes >= thresholds.minDashes ? rules : std::vector<Rule>();
}

} // namespace quorra::model
