// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/text_lines.h"

#include "text_lines/word_fragments.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace quorra::model {

namespace {

using textLines::thresholds;

double sharedHeight(const Box &a, const Box &b)
{
    return std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
}

bool belongsTo(const TextLine &line, const RawWord &word, const Box &body)
{
    const double larger = std::max(line.size, word.style.size);
    const double smaller = std::min(line.size, word.style.size);
    if (larger > thresholds.minInitialSize * smaller) {
        return std::abs(line.baseline - word.baseline) < thresholds.maxInitialShift * smaller;
    }
    return sharedHeight(line.box, body) > thresholds.minSharedHeight * std::min(line.box.height(), body.height());
}

bool isShort(const RawWord *word)
{
    return word->text.size() <= thresholds.maxMark;
}

// Whether the word sets the line's height and baseline: the largest one does, but no oversized sign.
bool setsHeight(const TextLine &line, const RawWord *word)
{
    if (line.words.empty()) {
        return true;
    }
    if (word->style.size > line.size) {
        const bool oversized = word->style.size > thresholds.maxSizeRatio * line.size && isShort(word);
        return !oversized || std::all_of(line.words.begin(), line.words.end(), isShort);
    }
    return line.size > thresholds.minInitialSize * word->style.size && !isShort(word) &&
           std::all_of(line.words.begin(), line.words.end(), isShort);
}

void add(TextLine &line, const RawWord *word, const Box &body)
{
    if (setsHeight(line, word)) {
        line.size = word->style.size;
        line.baseline = word->baseline;
        line.box.top = body.top;
        line.box.bottom = body.bottom;
    }
    line.box.left = line.words.empty() ? body.left : std::min(line.box.left, body.left);
    line.box.right = line.words.empty() ? body.right : std::max(line.box.right, body.right);
    line.words.push_back(word);
}

void dropEmptyLines(std::vector<TextLine> &lines)
{
    lines.erase(
        std::remove_if(lines.begin(), lines.end(), [](const TextLine &line) { return line.words.empty(); }),
        lines.end());
}

// Moves each fragment of a word to the line of the fragment before it, and a small fraction to the line it continues.
void uniteFragments(std::vector<TextLine> &lines)
{
    struct Home
    {
        const RawWord *word;
        std::size_t line;
    };
    std::unordered_map<std::size_t, Home> homes; // by the word's place on the page
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (const RawWord *word : lines[i].words) {
            homes.emplace(word->index, Home{word, i});
        }
    }
    const auto following = [&homes](const RawWord &word) {
        return word.endsLine ? homes.end() : homes.find(word.index + 1);
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t k = 0; k < lines[i].words.size(); ++k) { // grows while fragments are added
            const RawWord *word = lines[i].words[k];
            const auto next = following(*word);
            if (next == homes.end() || next->second.line == i) {
                continue;
            }
            Home &home = next->second;
            const auto last = following(*home.word);
            const bool fraction = last != homes.end() && isSmallFraction(*word, *home.word, *last->second.word);
            if (!fraction && !continuesWord(*word, *home.word)) {
                continue;
            }
            WordRefs &left = lines[home.line].words;
            left.erase(std::find(left.begin(), left.end(), home.word));
            add(lines[i], home.word, bodyOf(*home.word));
            home.line = i;
        }
    }
    dropEmptyLines(lines);
}

// Whether the word can be a superscript or subscript of one of the line's words.
bool isShiftedOn(const TextLine &line, const RawWord &word)
{
    const Box body = bodyOf(word);
    const double reach = thresholds.maxShiftedReach * line.size;
    if (word.style.size > thresholds.maxShiftedSize * line.size || body.top > line.box.bottom + reach ||
        body.bottom < line.box.top - reach) {
        return false;
    }
    const double before = line.box.left - word.box.right; // the mark of a note is before its text
    return (before > -thresholds.maxShiftedGap * line.size && before < thresholds.maxNoteMarkGap * line.size) ||
           std::any_of(line.words.begin(), line.words.end(), [&](const RawWord *base) {
               return std::abs(word.box.left - base->box.right) < thresholds.maxShiftedGap * line.size;
           });
}

// Superscripts and subscripts too far above or below their base to overlap it form lines of their own at first; this
// moves them to the line of their base.
void attachShiftedLines(std::vector<TextLine> &lines)
{
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].words.size() > thresholds.maxShiftedWords) {
            continue;
        }
        for (const std::size_t home : {i - 1, i + 1}) {
            const bool all = home < lines.size() && !lines[home].words.empty() &&
                             std::all_of(lines[i].words.begin(), lines[i].words.end(), [&](const RawWord *word) {
                                 return isShiftedOn(lines[home], *word);
                             });
            if (all && !lines[i].words.empty()) {
                for (const RawWord *word : lines[i].words) {
                    add(lines[home], word, bodyOf(*word));
                }
                lines[i].words.clear();
            }
        }
    }
    dropEmptyLines(lines);
}

TextLine *homeOf(const RawWord &word, const Box &body, std::vector<TextLine> &lines)
{
    for (std::size_t back = 1; back <= std::min(thresholds.maxOpenLines, lines.size()); ++back) {
        TextLine &line = lines[lines.size() - back];
        if (belongsTo(line, word, body)) {
            return &line;
        }
    }
    return nullptr;
}

// Takes the words out that can be drop caps: a large letter, perhaps with a quotation mark.
WordRefs takeLargeLetters(WordRefs &words)
{
    const auto bySize = [](const RawWord *a, const RawWord *b) { return a->style.size < b->style.size; };
    const auto [smallest, largest] = std::minmax_element(words.begin(), words.end(), bySize);
    if (words.empty() || (*largest)->style.size < thresholds.minInitialSize * (*smallest)->style.size) {
        return {};
    }
    std::vector<double> sizes;
    sizes.reserve(words.size());
    for (const RawWord *word : words) {
        sizes.push_back(word->style.size);
    }
    const double minSize = thresholds.minInitialSize * median(std::move(sizes));
    WordRefs letters;
    const auto rest = std::stable_partition(words.begin(), words.end(), [minSize](const RawWord *word) {
        return word->style.size < minSize || !isShort(word) || !word->text.back().isLetter();
    });
    letters.assign(rest, words.end());
    words.erase(rest, words.end());
    return letters;
}

// Sorts, and keeps equal elements in order. Most lists are in order already, above all the many short ones of cells;
// they are spared the memory that std::stable_sort() requests.
template <typename List, typename Less>
void sortStably(List &list, const Less &less)
{
    if (!std::is_sorted(list.begin(), list.end(), less)) {
        std::stable_sort(list.begin(), list.end(), less);
    }
}

// Adds a drop cap to the first of the lines that are beside it, and marks the others as beginning there.
bool attachDropCap(std::vector<TextLine> &lines, const RawWord *letter)
{
    const Box body = bodyOf(*letter);
    std::vector<TextLine *> beside;
    for (TextLine &line : lines) {
        const double gap = line.box.left - body.right;
        if (sharedHeight(line.box, body) > thresholds.minSharedHeight * line.box.height() &&
            gap > -thresholds.maxDropCapOverlap * line.size && gap < thresholds.maxDropCapGap * line.size) {
            beside.push_back(&line);
        }
    }
    if (beside.size() < thresholds.minDropCapLines) {
        return false;
    }
    for (TextLine *line : beside) {
        line->box.left = body.left;
    }
    beside.front()->words.push_back(letter);
    beside.front()->dropCapLines = static_cast<int>(beside.size());
    return true;
}

} // namespace

std::vector<TextLine> textLinesOf(WordRefs words)
{
    std::vector<TextLine> lines;
    if (words.size() == 1) { // as in most cells of tables
        add(lines.emplace_back(), words.front(), bodyOf(*words.front()));
        return lines;
    }
    sortStably(words, [](const RawWord *a, const RawWord *b) { return a->baseline < b->baseline; });
    const bool hasFragments =
        std::any_of(words.begin(), words.end(), [](const RawWord *word) { return !word->endsLine; });
    const WordRefs largeLetters = takeLargeLetters(words);
    for (const RawWord *word : words) {
        const Box body = bodyOf(*word);
        TextLine *home = homeOf(*word, body, lines);
        add(home ? *home : lines.emplace_back(), word, body);
    }
    for (const RawWord *letter : largeLetters) {
        if (!attachDropCap(lines, letter)) {
            const Box body = bodyOf(*letter);
            const auto home = std::find_if(
                lines.begin(), lines.end(), [&](const TextLine &line) { return belongsTo(line, *letter, body); });
            add(home != lines.end() ? *home : lines.emplace_back(), letter, body);
        }
    }
    if (hasFragments) {
        uniteFragments(lines);
    }
    attachShiftedLines(lines);
    for (TextLine &line : lines) {
        sortStably(line.words, [](const RawWord *a, const RawWord *b) { return a->box.left < b->box.left; });
    }
    sortStably(lines, [](const TextLine &a, const TextLine &b) { return a.baseline < b.baseline; });
    return lines;
}

std::vector<Segment> segmentsOf(const TextLine &line, double maxGap)
{
    std::vector<Segment> segments;
    for (const RawWord *word : line.words) {
        const Box body = bodyOf(*word);
        const double size = std::min(line.size, word->style.size * thresholds.maxSizeRatio);
        if (segments.empty() || body.left - segments.back().box.right > maxGap * size) {
            segments.push_back({{word}, body});
        } else {
            segments.back().words.push_back(word);
            segments.back().box = united(segments.back().box, body);
        }
    }
    return segments;
}

QString joinedText(const WordRefs &words, const QString &separator)
{
    QString text;
    for (const RawWord *word : words) {
        text += text.isEmpty() ? word->text : separator + word->text;
    }
    return text;
}

} // namespace quorra::model
