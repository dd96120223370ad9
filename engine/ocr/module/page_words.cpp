// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/page_words.h"

#include <tesseract/resultiterator.h>

#include <algorithm>
#include <memory>

namespace quorra::ocr {

namespace {

/// Height from the lowest descender to the highest ascender, as a part of the em: a mean of common text fonts.
constexpr double rowHeightPerEm = 0.9;

/// Part of a type size by which the heights of its lines differ.
constexpr double sizeTolerance = 0.08;

model::RecognisedWord wordAt(const tesseract::ResultIterator &it)
{
    model::RecognisedWord word;
    const std::unique_ptr<char[]> text(it.GetUTF8Text(tesseract::RIL_WORD));
    word.text = QString::fromUtf8(text.get());
    word.confidence = it.Confidence(tesseract::RIL_WORD) / 100.0;
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    it.BoundingBox(tesseract::RIL_WORD, &left, &top, &right, &bottom);
    word.box = {double(left), double(top), double(right), double(bottom)};
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    word.baseline =
        it.Baseline(tesseract::RIL_WORD, &x1, &y1, &x2, &y2) && x1 != x2 ? (double(y1) + y2) / 2 : double(bottom);
    float rowHeight = 0;
    float descenders = 0;
    float ascenders = 0;
    it.RowAttributes(&rowHeight, &descenders, &ascenders);
    word.size = double(rowHeight) / rowHeightPerEm;
    const char *language = it.WordRecognitionLanguage();
    word.language = QString::fromUtf8(language);
    word.endsLine = it.IsAtFinalElement(tesseract::RIL_TEXTLINE, tesseract::RIL_WORD);
    return word;
}

} // namespace

void evenSizes(std::vector<model::RecognisedWord> &words)
{
    std::vector<model::RecognisedWord *> sorted;
    sorted.reserve(words.size());
    for (model::RecognisedWord &word : words) {
        sorted.push_back(&word);
    }
    std::sort(sorted.begin(), sorted.end(), [](const auto *a, const auto *b) { return a->size < b->size; });
    for (std::size_t first = 0; first < sorted.size();) {
        std::size_t end = first;
        double sum = 0;
        while (end < sorted.size() && sorted[end]->size <= sorted[first]->size * (1 + sizeTolerance)) {
            sum += sorted[end]->size;
            ++end;
        }
        const double mean = sum / double(end - first);
        for (; first < end; ++first) {
            sorted[first]->size = mean;
        }
    }
}

std::vector<model::RecognisedWord> pageWords(tesseract::TessBaseAPI &api)
{
    std::vector<model::RecognisedWord> words;
    const std::unique_ptr<tesseract::ResultIterator> it(api.GetIterator());
    if (!it) {
        return words;
    }
    int line = 0;
    do {
        if (it->Empty(tesseract::RIL_WORD)) {
            continue;
        }
        if (it->IsAtBeginningOf(tesseract::RIL_TEXTLINE)) {
            ++line;
        }
        model::RecognisedWord word = wordAt(*it);
        if (word.text.trimmed().isEmpty()) {
            continue;
        }
        word.line = line;
        words.push_back(std::move(word));
    } while (it->Next(tesseract::RIL_WORD));
    return words;
}

} // namespace quorra::ocr
