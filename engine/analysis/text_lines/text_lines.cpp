// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/text_lines.h"

#include "text_lines/word_fragments.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace quorra::model {

namespace {

constexpr double bodyHeight = 0.72;   // of the font size: the height of capitals
constexpr double initialFactor = 1.8; // a word this much larger than the row's is an initial over several lines

double sharedHeight(const Box &a, const Box &b)
{
    return std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
}

bool belongsTo(const TextLine &row, const RawWord &word, const Box &body)
{
    const double larger = std::max(row.size, word.style.size);
    const double smaller = std::min(row.size, word.style.size);
    if (larger > initialFactor * smaller) {
        return std::abs(row.baseline - word.baseline) < 0.35 * smaller;
    }
    return sharedHeight(row.box, body) > 0.5 * std::min(row.box.height(), body.height());
}

void add(TextLine &row, const RawWord *word, const Box &body)
{
    if (row.words.empty() || word->style.size > row.size) {
        row.size = word->style.size;
        row.baseline = word->baseline;
        row.box.top = body.top;
        row.box.bottom = body.bottom;
    }
    row.box.left = row.words.empty() ? body.left : std::min(row.box.left, body.left);
    row.box.right = row.words.empty() ? body.right : std::max(row.box.right, body.right);
    row.words.push_back(word);
}

// A piece of a word goes to the row of the piece before it, and so does a fraction that goes on in its line.
void uniteFragments(std::vector<TextLine> &rows)
{
    struct Home
    {
        const RawWord *word;
        std::size_t row;
    };
    std::unordered_map<std::size_t, Home> homes; // by the word's place on the page
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (const RawWord *word : rows[i].words) {
            homes.emplace(word->index, Home{word, i});
        }
    }
    const auto following = [&homes](const RawWord &word) {
        return word.endsLine ? homes.end() : homes.find(word.index + 1);
    };
    const std::size_t count = rows.size();
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = 0; k < rows[i].words.size(); ++k) { // grows while pieces come in
            const RawWord *word = rows[i].words[k];
            const auto next = following(*word);
            if (next == homes.end() || next->second.row == i) {
                continue;
            }
            Home &home = next->second;
            const auto last = following(*home.word);
            const bool fraction = last != homes.end() && isSmallFraction(*word, *home.word, *last->second.word);
            if (!fraction && !continuesWord(*word, *home.word)) {
                continue;
            }
            std::vector<const RawWord *> &left = rows[home.row].words;
            left.erase(std::find(left.begin(), left.end(), home.word));
            add(rows[i], home.word, bodyOf(*home.word));
            home.row = i;
        }
    }
    rows.erase(
        std::remove_if(rows.begin(), rows.end(), [](const TextLine &row) { return row.words.empty(); }), rows.end());
}

// Whether a small word hangs on one of the row's words, as an index does.
bool hangsOn(const TextLine &row, const RawWord &word)
{
    const Box body = bodyOf(word);
    const double reach = 0.5 * row.size;
    if (word.style.size > 0.85 * row.size || body.top > row.box.bottom + reach || body.bottom < row.box.top - reach) {
        return false;
    }
    return std::any_of(row.words.begin(), row.words.end(), [&](const RawWord *base) {
        return std::abs(word.box.left - base->box.right) < 0.25 * row.size;
    });
}

// Rows of nothing but indices, too far from the letters that carry them to have been found with them.
void attachShiftedLines(std::vector<TextLine> &rows)
{
    constexpr std::size_t mostIndices = 8;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].words.size() > mostIndices) {
            continue;
        }
        for (const std::size_t home : {i - 1, i + 1}) {
            const bool all = home < rows.size() && !rows[home].words.empty() &&
                             std::all_of(rows[i].words.begin(), rows[i].words.end(), [&](const RawWord *word) {
                                 return hangsOn(rows[home], *word);
                             });
            if (all && !rows[i].words.empty()) {
                for (const RawWord *word : rows[i].words) {
                    add(rows[home], word, bodyOf(*word));
                }
                rows[i].words.clear();
            }
        }
    }
    rows.erase(
        std::remove_if(rows.begin(), rows.end(), [](const TextLine &row) { return row.words.empty(); }), rows.end());
}

} // namespace

Box bodyOf(const RawWord &word)
{
    return {word.box.left, word.baseline - bodyHeight * word.style.size, word.box.right, word.baseline};
}

std::vector<TextLine> textLinesOf(WordRefs words)
{
    std::stable_sort(
        words.begin(), words.end(), [](const RawWord *a, const RawWord *b) { return a->baseline < b->baseline; });
    const bool hasPieces = std::any_of(words.begin(), words.end(), [](const RawWord *word) { return !word->endsLine; });
    std::vector<TextLine> rows;
    constexpr std::size_t openRows = 4;
    for (const RawWord *word : words) {
        const Box body = bodyOf(*word);
        TextLine *home = nullptr;
        for (std::size_t back = 1; back <= std::min(openRows, rows.size()) && !home; ++back) {
            TextLine &row = rows[rows.size() - back];
            home = belongsTo(row, *word, body) ? &row : nullptr;
        }
        add(home ? *home : rows.emplace_back(), word, body);
    }
    if (hasPieces) {
        uniteFragments(rows);
    }
    attachShiftedLines(rows);
    for (TextLine &row : rows) {
        std::stable_sort(row.words.begin(), row.words.end(), [](const RawWord *a, const RawWord *b) {
            return a->box.left < b->box.left;
        });
    }
    std::stable_sort(
        rows.begin(), rows.end(), [](const TextLine &a, const TextLine &b) { return a.baseline < b.baseline; });
    return rows;
}

std::vector<Segment> segmentsOf(const TextLine &row, double gapInSizes)
{
    std::vector<Segment> segments;
    for (const RawWord *word : row.words) {
        const Box body = bodyOf(*word);
        const double size = std::min(row.size, word->style.size * 1.3);
        if (segments.empty() || body.left - segments.back().box.right > gapInSizes * size) {
            segments.push_back({{word}, body});
        } else {
            segments.back().words.push_back(word);
            segments.back().box = united(segments.back().box, body);
        }
    }
    return segments;
}

} // namespace quorra::model
