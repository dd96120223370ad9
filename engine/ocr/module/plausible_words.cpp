// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/plausible_words.h"

#include <algorithm>
#include <map>

namespace quorra::ocr {

namespace {

constexpr struct
{
    double word = 0.25;   ///< confidence below which a word is rubbish
    double line = 0.45;   ///< mean confidence of the words of a line below which all of them are
    double sign = 0.6;    ///< confidence below which a word without letters and digits is rubbish
    double on = 0.5;      ///< part of a word that is on a figure if it belongs to that
    double largeSign = 3; ///< heights of the usual word: larger signs are parts of drawings
} thresholds;

int letters(const QString &text)
{
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); }));
}

/// The median of their heights; 0 if there are no words.
double usualHeight(const std::vector<model::RecognisedWord> &words)
{
    if (words.empty()) {
        return 0;
    }
    std::vector<double> heights;
    heights.reserve(words.size());
    for (const model::RecognisedWord &word : words) {
        heights.push_back(word.box.height());
    }
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    return *middle;
}

bool isOn(const Box &word, const Box &place)
{
    return intersected(word, place).area() > thresholds.on * word.area();
}

/// Whether the word consists of signs that a rule looks like, and a rule is there.
bool isRule(const model::RecognisedWord &word, const std::vector<model::Rule> &rules)
{
    static const QString signs = QStringLiteral("|_-—–=~[](){}!/\\'`.,:;\"");
    const bool like = std::all_of(word.text.begin(), word.text.end(), [](QChar c) { return signs.contains(c); });
    return like && std::any_of(rules.begin(), rules.end(), [&](const model::Rule &rule) {
               const Box line = expanded({rule.x1, rule.y1, rule.x2, rule.y2}, rule.width / 2 + 1);
               return !intersected(line, word.box).isEmpty();
           });
}

} // namespace

double meanConfidence(const std::vector<model::RecognisedWord> &words)
{
    double sum = 0;
    int count = 0;
    for (const model::RecognisedWord &word : words) {
        const int size = letters(word.text);
        sum += size * word.confidence;
        count += size;
    }
    return count > 0 ? sum / count : 0;
}

void keepPlausible(
    std::vector<model::RecognisedWord> &words, const std::vector<model::Rule> &rules, const std::vector<Box> &figures)
{
    struct Line
    {
        double sum = 0;
        int words = 0;
    };
    std::map<int, Line> lines;
    for (const model::RecognisedWord &word : words) {
        lines[word.line].sum += word.confidence;
        ++lines[word.line].words;
    }
    const double height = usualHeight(words);
    const auto isRubbish = [&](const model::RecognisedWord &word) {
        const Line &line = lines[word.line];
        return word.confidence < thresholds.word || line.sum < thresholds.line * line.words ||
               (letters(word.text) == 0 &&
                (word.confidence < thresholds.sign || word.box.height() > thresholds.largeSign * height)) ||
               isRule(word, rules) ||
               std::any_of(figures.begin(), figures.end(), [&](const Box &box) { return isOn(word.box, box); });
    };
    words.erase(std::remove_if(words.begin(), words.end(), isRubbish), words.end());
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i].endsLine = i + 1 == words.size() || words[i + 1].line != words[i].line;
    }
}

} // namespace quorra::ocr
