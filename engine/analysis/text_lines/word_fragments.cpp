// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/word_fragments.h"

#include <cmath>

namespace quorra::model {

namespace {

using wordFragments::thresholds;
constexpr const textLines::Thresholds &lineThresholds = textLines::thresholds;

} // namespace

bool continuesWord(const RawWord &word, const RawWord &next)
{
    const double size = word.style.size;
    const double maxGap = lineThresholds.maxShiftedGap * size;
    return !word.spaceAfter && word.rotation == next.rotation && next.box.left - word.box.right <= maxGap &&
           next.box.left >= word.box.left - maxGap &&
           std::abs(next.baseline - word.baseline) <= lineThresholds.maxBaselineDistance * size;
}

bool isSmallFraction(const RawWord &word, const RawWord &first, const RawWord &second)
{
    const double size = word.style.size;
    const double gap = first.box.left - word.box.right;
    const double maxGap = thresholds.maxFractionGap * size;
    const bool stacked = continuesWord(first, second) && second.box.left < first.box.centreX();
    return stacked && !word.endsLine && word.rotation == first.rotation &&
           first.style.size < lineThresholds.maxShiftedSize * size && gap <= maxGap && gap > -maxGap &&
           std::abs(first.baseline - word.baseline) <= thresholds.maxFractionShift * size;
}

void keepFragmentsTogether(const RawPage &raw, const std::vector<WordRefs *> &groups)
{
    const std::vector<RawWord> &words = raw.words;
    std::vector<WordRefs *> homes(words.size(), nullptr);
    for (WordRefs *group : groups) {
        for (const RawWord *word : *group) {
            homes[word->index] = group;
        }
    }
    const auto join = [&](std::size_t from, std::size_t to) {
        if (homes[from] && !homes[to]) {
            homes[to] = homes[from];
            homes[to]->push_back(&words[to]);
        }
    };
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        if (continuesWord(words[i], words[i + 1])) {
            join(i, i + 1);
        }
    }
    for (std::size_t i = words.size(); i-- > 1;) {
        if (continuesWord(words[i - 1], words[i])) {
            join(i, i - 1);
        }
    }
}

} // namespace quorra::model
