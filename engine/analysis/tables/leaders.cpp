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

// Whether the word is dots alone beside others. A word of dots away from others is a mark for a missing value.
bool isLoneDot(const TextLine &line, std::size_t i)
{
    const QString &text = line.words[i]->text;
    const auto follow = [&line](std::size_t left) {
        const RawWord &a = *line.words[left];
        const RawWord &b = *line.words[left + 1];
        return dotsAtEnd(a.text) > 0 && dotsAtEnd(b.text) > 0 &&
               bodyOf(b).left - bodyOf(a).right <= thresholds.maxDotGap * line.size;
    };
    return dotsAtEnd(text) == text.size() && ((i > 0 && follow(i - 1)) || (i + 1 < line.words.size() && follow(i)));
}

// For each word whether it is part of a leader or ends with one.
std::vector<char> leaderWords(const TextLine &line)
{
    std::vector<char> marks(line.words.size(), 0);
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        marks[i] = isLoneDot(line, i) ? 1 : 0;
    }
    const bool lone = std::count(marks.begin(), marks.end(), 1) >= thresholds.minDots;
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        marks[i] = (lone && marks[i]) || dotsAtEnd(line.words[i]->text) >= thresholds.minDots ? 1 : 0;
    }
    return marks;
}

} // namespace

bool hasLeader(const TextLine &line)
{
    const std::vector<char> marks = leaderWords(line);
    return std::find(marks.begin(), marks.end(), 1) != marks.end();
}

bool leadsToOneText(const TextLine &line)
{
    const std::vector<char> marks = leaderWords(line);
    const auto last = std::find(marks.rbegin(), marks.rend(), 1);
    if (last == marks.rend()) {
        return false;
    }
    TextLine after = line;
    after.words.assign(line.words.begin() + (last.base() - marks.begin()), line.words.end());
    return segmentsOf(after, thresholds.maxWordGap).size() <= 1;
}

TextLine withoutLeaders(const TextLine &line)
{
    const std::vector<char> marks = leaderWords(line);
    if (std::find(marks.begin(), marks.end(), 1) == marks.end()) {
        return line;
    }
    TextLine result = line;
    result.words.clear();
    result.box = {};
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const RawWord *word = line.words[i];
        if (!marks[i] || dotsAtEnd(word->text) < word->text.size()) {
            result.words.push_back(word);
            result.box = united(result.box, bodyOf(*word));
        }
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
