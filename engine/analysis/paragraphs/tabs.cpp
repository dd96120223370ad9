// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/tabs.h"

#include "base/statistics.h"
#include "text_lines/leader_words.h"
#include "text_lines/list_mark.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using tabs::thresholds;

double gapBefore(const TextLine &line, std::size_t word)
{
    return line.words[word]->box.left - line.words[word - 1]->box.right;
}

// The usual space between words in and around the line, without its widest one.
double usualGap(const std::vector<TextLine> &lines, std::size_t index)
{
    std::vector<double> gaps;
    for (std::size_t i = index > 0 ? index - 1 : 0; i < std::min(index + 2, lines.size()); ++i) {
        for (std::size_t word = 1; word < lines[i].words.size(); ++word) {
            gaps.push_back(gapBefore(lines[i], word));
        }
    }
    if (!gaps.empty()) {
        gaps.erase(std::max_element(gaps.begin(), gaps.end()));
    }
    return median(std::move(gaps));
}

bool isNumbering(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^(?:§|[0-9]{1,2}(?:\\.[0-9]{1,2})*\\.?)$"));
    return isListMark(text) || isSpacedMark(text) || number.match(text).hasMatch();
}

bool hasFixedPitch(const TextLine &line)
{
    return std::all_of(
        line.words.begin(), line.words.end(), [](const RawWord *word) { return word->style.fixedPitch; });
}

std::vector<QString> textsOf(const TextLine &line)
{
    std::vector<QString> texts;
    texts.reserve(line.words.size());
    for (const RawWord *word : line.words) {
        texts.push_back(word->text);
    }
    return texts;
}

void addLeaders(std::vector<LineTab> &found, const TextLine &line)
{
    const bool mayHave =
        std::any_of(line.words.begin(), line.words.end(), [](const RawWord *word) { return isLeaderPart(word->text); });
    if (!mayHave) {
        return;
    }
    const std::vector<QString> texts = textsOf(line);
    for (std::size_t from = 0; from < texts.size();) {
        const auto [first, last] = findLeader(texts, from);
        if (first > 0 && last < texts.size()) {
            found.push_back({first - 1, last, true});
        }
        from = std::max(last, from + 1);
    }
}

} // namespace

std::vector<LineTab> tabsOf(const std::vector<TextLine> &lines, std::size_t index)
{
    const TextLine &line = lines[index];
    std::vector<LineTab> found;
    if (line.words.size() < 2 || hasFixedPitch(line)) {
        return found;
    }
    addLeaders(found, line);
    const auto isInLeader = [&found](std::size_t word) {
        return std::any_of(found.begin(), found.end(), [word](const LineTab &tab) {
            return tab.leader && word > tab.end && word <= tab.begin;
        });
    };
    const double least = thresholds.minGap * line.size;
    double wide = 0; // not needed for most lines
    for (std::size_t word = 1; word < line.words.size(); ++word) {
        const double gap = gapBefore(line, word);
        if (gap <= least || isInLeader(word) || (word == 1 && isNumbering(line.words.front()->text))) {
            continue;
        }
        wide = wide > 0 ? wide : std::max(least, thresholds.minUsualGaps * usualGap(lines, index));
        if (gap > wide) {
            found.push_back({word - 1, word, false});
        }
    }
    std::sort(found.begin(), found.end(), [](const LineTab &a, const LineTab &b) { return a.begin < b.begin; });
    return found;
}

bool endsInLeader(const TextLine &line)
{
    if (!isLeaderPart(line.words.back()->text)) {
        return false;
    }
    const std::vector<QString> texts = textsOf(line);
    std::pair<std::size_t, std::size_t> found{0, 0};
    while (found.second < texts.size()) {
        found = findLeader(texts, found.second);
    }
    return found.first < texts.size();
}

std::vector<TabStop> tabStopsOf(const TextLine &line, const std::vector<LineTab> &tabs, const Box &column)
{
    std::vector<TabStop> stops;
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        const std::size_t last = i + 1 < tabs.size() ? tabs[i + 1].end : line.words.size() - 1;
        const double left = line.words[tabs[i].begin]->box.left;
        const double right = line.words[last]->box.right;
        TabStop stop{left - column.left, Alignment::Left, tabs[i].leader};
        const bool isLast = i + 1 == tabs.size();
        const double inset = line.box.left - column.left; // lines of headers are as far from both edges of the page
        if (isLast && (tabs[i].leader || std::abs(column.right - right) < thresholds.sameColumnEdge ||
                       std::abs(column.right - right - inset) < thresholds.sameColumnEdge)) {
            stop = {right - column.left, Alignment::Right, tabs[i].leader};
        } else if (std::abs((left + right) / 2 - column.centreX()) < thresholds.centred) {
            stop = {column.width() / 2, Alignment::Centre, tabs[i].leader};
        }
        stops.push_back(stop);
    }
    return stops;
}

} // namespace quorra::model
