// SPDX-License-Identifier: GPL-3.0-or-later
#include "even_type.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace quorra::model {

namespace {

using evenType::thresholds;

/// The value in the middle of a non-empty list.
double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

template <typename Get>
double medianOf(const std::vector<RecognisedWord *> &words, const Get &get)
{
    std::vector<double> values;
    values.reserve(words.size());
    std::transform(words.begin(), words.end(), std::back_inserter(values), [&get](const RecognisedWord *word) {
        return get(*word);
    });
    return median(std::move(values));
}

/// Gives all words with nearly the same size the same one. The words are sorted by their sizes.
void joinSizes(std::vector<RecognisedWord *> words)
{
    const auto smaller = [](const RecognisedWord *a, const RecognisedWord *b) { return a->size < b->size; };
    std::stable_sort(words.begin(), words.end(), smaller);
    auto first = words.begin();
    while (first != words.end()) {
        const double most = thresholds.sameSize * (*first)->size;
        const auto last = std::find_if(first, words.end(), [most](const RecognisedWord *w) { return w->size > most; });
        const double size = medianOf({first, last}, [](const RecognisedWord &word) { return word.size; });
        std::for_each(first, last, [size](RecognisedWord *word) { word->size = size; });
        first = last;
    }
}

void fitBox(RecognisedWord &word)
{
    const double up = thresholds.ascent * word.size;
    const double down = thresholds.descent * word.size;
    switch (word.rotation) {
    case 90:
        word.box = {word.baseline - down, word.box.top, word.baseline + up, word.box.bottom};
        break;
    case 180:
        word.box = {word.box.left, word.baseline - down, word.box.right, word.baseline + up};
        break;
    case 270:
        word.box = {word.baseline - up, word.box.top, word.baseline + down, word.box.bottom};
        break;
    default:
        word.box = {word.box.left, word.baseline - up, word.box.right, word.baseline + down};
        break;
    }
}

} // namespace

void evenOutType(std::vector<RecognisedWord> &words)
{
    std::map<int, std::vector<RecognisedWord *>> lines;
    std::vector<RecognisedWord *> all;
    for (RecognisedWord &word : words) {
        lines[word.line].push_back(&word);
        all.push_back(&word);
    }
    for (const auto &[number, line] : lines) {
        const double baseline = medianOf(line, [](const RecognisedWord &word) { return word.baseline; });
        const double size = medianOf(line, [](const RecognisedWord &word) { return word.size; });
        for (RecognisedWord *word : line) {
            word->baseline = baseline;
            word->size = size;
        }
    }
    joinSizes(std::move(all));
    for (RecognisedWord &word : words) {
        fitBox(word);
    }
}

} // namespace quorra::model
