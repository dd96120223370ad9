// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/superscripts.h"

#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using superscripts::thresholds;
constexpr const textLines::Thresholds &lineThresholds = textLines::thresholds;

using Words = std::vector<Word>;

// What most letters of a line have in common.
struct MainText
{
    double size = 0;
    double baseline = 0;
};

MainText mainTextOf(const Words &words)
{
    MainText best;
    qsizetype most = 0;
    for (const Word &word : words) {
        qsizetype letters = 0;
        for (const Word &other : words) {
            const double size = word.style->size;
            const bool alike = std::abs(other.baseline - word.baseline) < thresholds.sameBaseline * size &&
                               std::abs(other.style->size - size) < thresholds.sameSizeTolerance * size;
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

bool isSmall(const Word &word, const MainText &text)
{
    return word.style->size <= lineThresholds.maxShiftedSize * text.size;
}

BaselineShift shiftOf(const Word &word, const MainText &text)
{
    const double raise = (text.baseline - word.baseline) / text.size;
    if (word.rotation != 0 || !isSmall(word, text) || std::abs(raise) > lineThresholds.maxBaselineDistance) {
        return BaselineShift::None;
    }
    return raise > thresholds.minRaise   ? BaselineShift::Superscript
           : raise < -thresholds.minDrop ? BaselineShift::Subscript
                                         : BaselineShift::None;
}

bool isOnOneBaseline(const Words &words)
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
    if (isOnOneBaseline(words)) {
        return;
    }
    const MainText text = mainTextOf(words);
    std::vector<BaselineShift> shifts(words.size());
    std::vector<bool> isBase(words.size()); // what a superscript or subscript can be next to
    for (std::size_t i = 0; i < shifts.size(); ++i) {
        shifts[i] = shiftOf(words[i], text);
        isBase[i] = shifts[i] == BaselineShift::None && !isSmall(words[i], text);
    }
    const auto isNextTo = [&](std::size_t i, std::size_t neighbour) {
        return neighbour < shifts.size() && isBase[neighbour] &&
               gapBetween(words[i].box, words[neighbour].box) < lineThresholds.maxNoteMarkGap * text.size;
    };
    for (std::size_t i = 0; i < shifts.size(); ++i) {
        isBase[i] = isBase[i] || (shifts[i] != BaselineShift::None && isNextTo(i, i - 1));
    }
    for (std::size_t i = shifts.size(); i-- > 0;) { // a mark before its text, as at the start of a footnote
        if (shifts[i] != BaselineShift::None && !isBase[i]) {
            isBase[i] = isNextTo(i, i + 1);
            shifts[i] = isBase[i] ? shifts[i] : BaselineShift::None;
        }
    }
    for (std::size_t i = 0; i < shifts.size(); ++i) {
        line.words[first + i].shift = shifts[i];
    }
}

} // namespace quorra::model
