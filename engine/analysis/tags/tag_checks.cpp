// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/tag_checks.h"

#include "text_lines/sentence_end.h"
#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace quorra::model {

namespace {

using tagChecks::thresholds;

/// The words of a paragraph that are below one another: all of them, or those of one column.
struct Piece
{
    const TaggedParagraph *paragraph = nullptr;
    std::vector<const RawWord *> words; ///< in reading order
    Box box;                            ///< around their bodies
};

const TaggedContent *contentOf(const RawWord &word, const TaggedText &text)
{
    return word.content < 0 || static_cast<std::size_t>(word.content) >= text.contents.size()
               ? nullptr
               : &text.contents[static_cast<std::size_t>(word.content)];
}

bool isCovered(const RawPage &page, const TaggedText &text)
{
    double all = 0;
    double covered = 0;
    double artifacts = 0;
    for (const RawWord &word : page.words) {
        const TaggedContent *content = contentOf(word, text);
        const auto letters = static_cast<double>(word.text.size());
        if (word.artifact || (content && content->artifact)) {
            artifacts += letters;
            continue;
        }
        all += letters;
        covered += content ? letters : 0;
    }
    return covered > 0 && covered >= thresholds.minCovered * all &&
           artifacts <= thresholds.maxArtifacts * (all + artifacts);
}

/// The paragraphs of the page outside of tables and notes, in the order of the tags.
std::vector<Piece> piecesOf(const RawPage &page, const TaggedText &text)
{
    std::vector<const RawWord *> words;
    for (const RawWord &word : page.words) {
        const TaggedContent *content = contentOf(word, text);
        if (word.rotation == 0 && content && content->paragraph) {
            words.push_back(&word);
        }
    }
    std::stable_sort(
        words.begin(), words.end(), [](const RawWord *a, const RawWord *b) { return a->content < b->content; });
    std::map<std::size_t, std::vector<const RawWord *>> byParagraph;
    for (const RawWord *word : words) {
        byParagraph[contentOf(*word, text)->paragraph->number].push_back(word);
    }
    std::vector<Piece> pieces;
    for (auto &[number, own] : byParagraph) {
        const RawWord *before = nullptr;
        for (const RawWord *word : own) {
            if (!before || word->baseline < before->baseline - thresholds.minUpStep * word->style.size) {
                pieces.push_back({contentOf(*word, text)->paragraph, {}, {}});
            }
            pieces.back().words.push_back(word);
            pieces.back().box = united(pieces.back().box, bodyOf(*word));
            before = word;
        }
    }
    return pieces;
}

bool isInTable(const Piece &piece)
{
    return piece.paragraph->table >= 0;
}

/// Whether the words of other paragraphs are inside of paragraphs.
bool areMixed(const std::vector<Piece> &pieces)
{
    struct Placed
    {
        double y = 0;
        double x = 0;
        const TaggedParagraph *paragraph = nullptr;
    };
    std::vector<Placed> words;
    for (const Piece &piece : pieces) {
        for (const RawWord *word : piece.words) {
            const Box body = bodyOf(*word);
            words.push_back({body.centreY(), body.centreX(), piece.paragraph});
        }
    }
    std::sort(words.begin(), words.end(), [](const Placed &a, const Placed &b) { return a.y < b.y; });
    const auto most = static_cast<std::size_t>(thresholds.maxForeign * static_cast<double>(words.size())) + 1;
    std::size_t foreign = 0;
    std::size_t steps = 0;
    for (const Piece &piece : pieces) {
        auto word = std::lower_bound(
            words.begin(), words.end(), piece.box.top, [](const Placed &each, double y) { return each.y < y; });
        for (; word != words.end() && word->y < piece.box.bottom && foreign <= most; ++word) {
            if (++steps > thresholds.maxSteps) {
                return true;
            }
            const bool inside = word->x > piece.box.left && word->x < piece.box.right;
            foreign += inside && word->paragraph != piece.paragraph ? 1 : 0;
        }
    }
    return foreign > most;
}

bool isTorn(const Piece &piece)
{
    for (std::size_t i = 1; i < piece.words.size(); ++i) {
        const RawWord &a = *piece.words[i - 1];
        const RawWord &b = *piece.words[i];
        const double size = std::max(a.style.size, b.style.size);
        const double ratio = size / std::max(0.1, std::min(a.style.size, b.style.size));
        const bool newLine = b.baseline > a.baseline + size / 2;
        if (newLine && (b.baseline - a.baseline > thresholds.minGap * size || ratio > thresholds.minSizeRatio)) {
            return true;
        }
    }
    return false;
}

bool areTorn(const std::vector<Piece> &pieces)
{
    std::size_t torn = 0;
    std::size_t all = 0;
    for (const Piece &piece : pieces) {
        all += piece.words.size();
        torn += isTorn(piece) ? piece.words.size() : 0;
    }
    return static_cast<double>(torn) > thresholds.maxTorn * static_cast<double>(all);
}

bool overlap(const Box &a, const Box &b)
{
    const double common = std::min(a.right, b.right) - std::max(a.left, b.left);
    return common > thresholds.minOverlap * std::min(a.width(), b.width());
}

bool isText(const Piece &piece)
{
    return !isInTable(piece) && piece.paragraph->role != TagRole::Note;
}

/// Whether the order leads upwards more often than columns do.
bool isOrderOdd(const std::vector<Piece> &pieces)
{
    std::size_t upward = 0;
    std::size_t steps = 0;
    const Piece *before = nullptr;
    for (const Piece &piece : pieces) {
        if (!isText(piece)) {
            continue;
        }
        if (before) {
            ++steps;
            upward += piece.box.bottom < before->box.top && overlap(piece.box, before->box) ? 1 : 0;
        }
        before = &piece;
    }
    return upward > thresholds.fewUpward &&
           static_cast<double>(upward) > thresholds.maxUpward * static_cast<double>(steps);
}

/// Whether the paragraphs are lines of paragraphs.
bool areCut(const std::vector<Piece> &pieces)
{
    std::size_t cut = 0;
    std::size_t all = 0;
    const Piece *before = nullptr;
    for (const Piece &piece : pieces) {
        if (!isText(piece) || piece.paragraph->role != TagRole::Paragraph) {
            before = nullptr;
            continue;
        }
        if (before && before->paragraph != piece.paragraph) {
            const RawWord &last = *before->words.back();
            const RawWord &first = *piece.words.front();
            const bool goesOn = !endsSentence(last.text) && first.text.front().isLower() &&
                                std::abs(last.style.size - first.style.size) < 1 && first.baseline > last.baseline &&
                                first.baseline - last.baseline < 2 * first.style.size;
            ++all;
            cut += goesOn ? 1 : 0;
        }
        before = &piece;
    }
    return cut > thresholds.fewCut && static_cast<double>(cut) > thresholds.maxCut * static_cast<double>(all);
}

} // namespace

bool areTagsSound(const RawPage &page, const TaggedText &text)
{
    if (!isCovered(page, text)) {
        return false;
    }
    const std::vector<Piece> pieces = piecesOf(page, text);
    return !areMixed(pieces) && !areTorn(pieces) && !isOrderOdd(pieces) && !areCut(pieces);
}

void checkHeadings(const std::vector<RawPage> &pages, TaggedText &text)
{
    std::vector<std::size_t> letters(text.paragraphs.size(), 0);
    std::size_t all = 0;
    for (const RawPage &page : pages) {
        for (const RawWord &word : page.words) {
            const TaggedContent *content = contentOf(word, text);
            if (content && content->paragraph) {
                letters[content->paragraph->number] += static_cast<std::size_t>(word.text.size());
                all += static_cast<std::size_t>(word.text.size());
            }
        }
    }
    std::size_t inHeadings = 0;
    for (TaggedParagraph &paragraph : text.paragraphs) {
        if (paragraph.role == TagRole::Heading) {
            inHeadings += letters[paragraph.number];
        }
    }
    const bool most = all >= thresholds.minLetters &&
                      static_cast<double>(inHeadings) > thresholds.maxHeadings * static_cast<double>(all);
    if (most) {
        text.contents.clear();
    }
    for (TaggedParagraph &paragraph : text.paragraphs) {
        if (paragraph.role == TagRole::Heading && letters[paragraph.number] > thresholds.maxHeading) {
            paragraph.role = TagRole::Paragraph;
            paragraph.level = 0;
        }
    }
}

} // namespace quorra::model
