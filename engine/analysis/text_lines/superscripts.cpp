// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/superscripts.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

// In parts of the text's size.
constexpr double smallType = 0.85;
constexpr double leastRaise = 0.12;
constexpr double leastDrop = 0.08;
constexpr double farthestShift = 1.1; // the limits of a sum stand that far off
constexpr double widestGap = 0.45;    // a blank may stand before a footnote's sign

using Words = std::vector<Word>;

struct Ground
{
    double size = 0;
    double baseline = 0;
};

// The size and baseline that most letters of the line have.
Ground groundOf(const Words &words)
{
    Ground best;
    qsizetype most = 0;
    for (const Word &word : words) {
        qsizetype letters = 0;
        for (const Word &other : words) {
            const bool alike = std::abs(other.baseline - word.baseline) < 0.05 * word.style->size &&
                               std::abs(other.style->size - word.style->size) < 0.1 * word.style->size;
            letters += alike ? other.text.size() : 0;
        }
        if (letters > most || (letters == most && word.style->size > best.size)) {
            most = letters;
            best = {word.style->size, word.baseline};
        }
    }
    return best;
}

double gapBetween(const Box &a, const Box &b)
{
    return std::max(a.left - b.right, b.left - a.right);
}

BaselineShift shiftOf(const Word &word, const Ground &ground)
{
    const double raise = (ground.baseline - word.baseline) / ground.size;
    if (word.rotation != 0 || word.style->size > smallType * ground.size || std::abs(raise) > farthestShift) {
        return BaselineShift::None;
    }
    return raise > leastRaise   ? BaselineShift::Superscript
           : raise < -leastDrop ? BaselineShift::Subscript
                                : BaselineShift::None;
}

bool isPlain(const Words &words)
{
    const Word &first = words.front();
    return std::all_of(
        words.begin(), words.end(), [&first](const Word &word) { return word.baseline == first.baseline; });
}

} // namespace

void markSuperscripts(Line &line, std::size_t first)
{
    if (line.words.size() < first + 2 || line.rotation != 0) {
        return;
    }
    const Words words(line.words.begin() + static_cast<std::ptrdiff_t>(first), line.words.end());
    if (isPlain(words)) {
        return;
    }
    const Ground ground = groundOf(words);
    std::vector<BaselineShift> shifts(words.size());
    std::vector<bool> carries(words.size()); // what a sign can hang on
    for (std::size_t i = 0; i < shifts.size(); ++i) {
        shifts[i] = shiftOf(words[i], ground);
        carries[i] = shifts[i] == BaselineShift::None && words[i].style->size > smallType * ground.size;
    }
    const auto hangs = [&](std::size_t i, std::size_t neighbour) {
        return neighbour < shifts.size() && carries[neighbour] &&
               gapBetween(words[i].box, words[neighbour].box) < widestGap * ground.size;
    };
    for (std::size_t i = 0; i < shifts.size(); ++i) {
        carries[i] = carries[i] || (shifts[i] != BaselineShift::None && hangs(i, i - 1));
    }
    for (std::size_t i = shifts.size(); i-- > 0;) { // a sign before its text, as at the head of a footnote
        if (shifts[i] != BaselineShift::None && !carries[i]) {
            carries[i] = hangs(i, i + 1);
            shifts[i] = carries[i] ? shifts[i] : BaselineShift::None;
        }
    }
    for (std::size_t i = 0; i < shifts.size(); ++i) {
        line.words[first + i].shift = shifts[i];
    }
}

} // namespace quorra::model
