// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/leader_words.h"

#include <algorithm>
#include <iterator>

namespace quorra::model {

namespace {

using leaderWords::thresholds;

bool isDot(QChar c)
{
    return c == QLatin1Char('.') || c.unicode() == 0xb7 || c.unicode() == 0x2024 || c.unicode() == 0x2025 ||
           c.unicode() == 0x2026;
}

// The characters [first, second) of the text that are its longest row of dots.
std::pair<qsizetype, qsizetype> dotsIn(const QString &text)
{
    std::pair<qsizetype, qsizetype> longest{0, 0};
    for (qsizetype i = 0; i < text.size();) {
        qsizetype end = i;
        while (end < text.size() && isDot(text.at(end))) {
            ++end;
        }
        if (end - i > longest.second - longest.first) {
            longest = {i, end};
        }
        i = std::max(end, i + 1);
    }
    return longest;
}

// Cuts the text before `at` off the word, which becomes `left` points narrower.
RawWord takeStart(RawWord &word, qsizetype at, double left)
{
    RawWord start = word;
    start.text = word.text.left(at);
    start.box.right = start.box.left + left;
    start.spaceAfter = true;
    start.endsLine = false;
    word.text = word.text.mid(at);
    word.box.left = start.box.right;
    return start;
}

} // namespace

bool isLeaderPart(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isDot);
}

std::pair<std::size_t, std::size_t> findLeader(const std::vector<QString> &texts, std::size_t from)
{
    for (std::size_t i = from; i < texts.size();) {
        std::size_t end = i;
        qsizetype dots = 0;
        while (end < texts.size() && isLeaderPart(texts[end])) {
            dots += texts[end].size();
            ++end;
        }
        if (dots >= thresholds.minDots) {
            return {i, end};
        }
        i = std::max(end, i + 1);
    }
    return {texts.size(), texts.size()};
}

void cutLeadersOff(std::vector<RawWord> &words)
{
    const auto needsCut = [](const RawWord &word) {
        const auto [first, last] = dotsIn(word.text);
        return last - first >= thresholds.minDots && last - first < word.text.size();
    };
    if (std::none_of(words.begin(), words.end(), needsCut)) {
        return;
    }
    std::vector<RawWord> cut;
    cut.reserve(words.size());
    for (RawWord &word : words) {
        if (needsCut(word) && word.rotation == 0) {
            const auto [first, last] = dotsIn(word.text);
            const auto dots = static_cast<double>(last - first);
            const auto letters = static_cast<double>(word.text.size()) - dots;
            const double dot = std::min(thresholds.dotWidth * word.style.size, word.box.width() / (dots + letters));
            const double letter = (word.box.width() - dots * dot) / letters;
            if (first > 0) {
                cut.push_back(takeStart(word, first, static_cast<double>(first) * letter));
            }
            if (last - first < word.text.size()) {
                cut.push_back(takeStart(word, last - first, dots * dot));
            }
        }
        cut.push_back(std::move(word));
    }
    words = std::move(cut);
}

} // namespace quorra::model
