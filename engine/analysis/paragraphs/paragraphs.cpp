// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/paragraphs.h"

#include "document/direction.h"
#include "document/text.h"
#include "paragraphs/dehyphenation.h"
#include "paragraphs/paragraph_breaks.h"
#include "tags/tag_use.h"
#include "text_lines/list_mark.h"
#include "text_lines/superscripts.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using paragraphs::thresholds;
constexpr const textLines::Thresholds &lineThresholds = textLines::thresholds;

// Whether most words have fixed pitch. The line ends of such text are kept.
bool isFixedPitch(const std::vector<Line> &lines)
{
    std::size_t fixed = 0;
    std::size_t all = 0;
    for (const Line &line : lines) {
        for (const Word &word : line.words) {
            ++all;
            fixed += word.style->fixedPitch ? 1 : 0;
        }
    }
    return static_cast<double>(fixed) > thresholds.minFixedPitch * static_cast<double>(all);
}

template <typename Get>
bool agree(const std::vector<Line> &lines, std::size_t from, std::size_t to, Get get)
{
    for (std::size_t i = from; i + 1 < to; ++i) {
        if (std::abs(get(lines[i]) - get(lines[i + 1])) > lineThresholds.sameEdge) {
            return false;
        }
    }
    return to > from + 1;
}

// Whether every line is in the middle of the column, and only the widest reaches its left edge.
bool isCentred(const std::vector<Line> &lines, const Box &column)
{
    const double tolerance = std::max(thresholds.minCentredTolerance, thresholds.centredTolerance * column.width());
    const auto inMiddle = std::all_of(lines.begin(), lines.end(), [&](const Line &line) {
        return std::abs(line.box.centreX() - column.centreX()) <= tolerance;
    });
    const auto [first, last] = std::minmax_element(
        lines.begin(), lines.end(), [](const Line &a, const Line &b) { return a.box.centreX() < b.box.centreX(); });
    const auto atEdge = std::count_if(
        lines.begin(), lines.end(), [&](const Line &line) { return line.box.left - column.left < tolerance; });
    return inMiddle && atEdge <= 1 && last->box.centreX() - first->box.centreX() <= thresholds.sameCentre;
}

/// The column that a paragraph stands in. Its right edge is a margin if more than one line ends there; otherwise, it is
/// only where the longest line happens to end.
struct ParagraphColumn
{
    Box box;
    bool hasRightMargin = true;
};

Alignment alignmentOf(const std::vector<Line> &lines, const ParagraphColumn &place)
{
    const Box &column = place.box;
    const std::size_t n = lines.size();
    if (n == 1) {
        const Box &box = lines.front().box;
        const double left = box.left - column.left;
        const double right = column.right - box.right;
        const bool inset = left > thresholds.minInset * column.width();
        const double tolerance = std::max(thresholds.minCentredTolerance, thresholds.centredTolerance * column.width());
        if (inset && std::abs(left - right) < tolerance) {
            return Alignment::Centre;
        }
        return inset && right < lineThresholds.sameEdge && left > thresholds.minRightInset * column.width()
                   ? Alignment::Right
                   : Alignment::Left;
    }
    const auto left = [](const Line &l) { return l.box.left; };
    const auto right = [](const Line &l) { return l.box.right; };
    const bool rights = agree(lines, 0, n - 1, right);
    const bool fillsFirst =
        place.hasRightMargin && n == 2 && column.right - lines.front().box.right < lineThresholds.sameEdge;
    const bool lefts = n == 2 ? agree(lines, 0, n, left) : agree(lines, 1, n, left);
    if (lefts) {
        return (n > 2 && rights) || fillsFirst ? Alignment::Justify : Alignment::Left;
    }
    if (isCentred(lines, column)) {
        return Alignment::Centre;
    }
    if (fillsFirst) {
        return Alignment::Justify; // the first line is indented
    }
    return agree(lines, 0, n, right) ? Alignment::Right : rights ? Alignment::Justify : Alignment::Left;
}

void measure(Paragraph &paragraph, const ParagraphColumn &place)
{
    const Box &column = place.box;
    const std::vector<Line> &lines = paragraph.lines;
    double left = lines.front().box.left;
    double right = lines.front().box.right;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        left = i == 1 ? lines[i].box.left : std::min(left, lines[i].box.left);
        right = std::max(right, lines[i].box.right);
    }
    paragraph.alignment = alignmentOf(lines, place);
    if (paragraph.rightToLeft && paragraph.alignment != Alignment::Centre) {
        paragraph.alignment = Alignment::Right;
    }
    if (paragraph.alignment == Alignment::Left || paragraph.alignment == Alignment::Justify) {
        paragraph.indentLeft = std::max(0.0, left - column.left);
        paragraph.firstLineIndent = lines.front().box.left - left;
    }
    if (paragraph.alignment == Alignment::Right || paragraph.alignment == Alignment::Justify) {
        paragraph.indentRight = std::max(0.0, column.right - right);
    }
    if (lines.size() > 1) {
        paragraph.lineDistance =
            (lines.back().baseline - lines.front().baseline) / static_cast<double>(lines.size() - 1);
    }
    for (const Line &line : lines) {
        paragraph.box = united(paragraph.box, line.box);
    }
}

// Takes over the tabs of the paragraph, which has lines [start, end) of the column. Its text begins at its left edge
// then, whatever its first and last line look like.
void setTabStops(
    Paragraph &paragraph, const std::vector<TextLine> &lines, std::size_t start, std::size_t end,
    const ParagraphBreaks &breaks, const Box &column)
{
    for (std::size_t i = start; i < end; ++i) {
        const std::vector<TabStop> stops = tabStopsOf(lines[i], breaks.tabs(i), column);
        paragraph.tabStops.insert(paragraph.tabStops.end(), stops.begin(), stops.end());
    }
    if (paragraph.tabStops.empty() || paragraph.rightToLeft) {
        return;
    }
    double left = paragraph.lines.back().box.left;
    for (std::size_t i = 1; i < paragraph.lines.size(); ++i) {
        left = std::min(left, paragraph.lines[i].box.left);
    }
    paragraph.alignment = Alignment::Left;
    paragraph.indentLeft = std::max(0.0, left - column.left);
    paragraph.indentRight = 0;
    paragraph.firstLineIndent = paragraph.lines.front().box.left - left;
}

// Whether the first word of the line is a list mark, with others after it.
bool beginsWithMark(const Line &line, bool rightToLeft)
{
    const std::vector<Word> &words = line.words;
    if (words.size() < 2 || !words.front().spaceAfter()) {
        return false;
    }
    const QString &mark = words.front().text;
    if (isListMark(mark) || rightToLeft || !isSpacedMark(mark)) {
        return isListMark(mark);
    }
    std::vector<double> gaps;
    for (std::size_t i = 1; i < words.size(); ++i) {
        gaps.push_back(words[i].box.left - words[i - 1].box.right);
    }
    return isSpaced(gaps, words.front().style->size);
}

// Makes the paragraph a list item if its first word is a list mark.
void takeListMark(Paragraph &paragraph)
{
    const Line &first = paragraph.lines.front();
    if (!beginsWithMark(first, paragraph.rightToLeft)) {
        return;
    }
    const QString &mark = first.words.front().text;
    const bool bullet = isBullet(mark) || isLetterBullet(mark);
    const bool bold = std::all_of(first.words.begin(), first.words.end(), [](const Word &w) { return w.style->bold; });
    if (!bullet && bold && paragraph.lines.size() <= 2) {
        return; // the number of a heading
    }
    const double gap = first.words[1].box.left - first.words[0].box.right;
    const bool hangs =
        paragraph.lines.size() > 1 && paragraph.lines[1].box.left > first.box.left + lineThresholds.sameEdge;
    const double minGap = thresholds.minMarkGap * first.words[0].style->size;
    if ((!bullet || isDashBullet(mark)) && !hangs && gap < minGap) {
        return; // "A. Smith", "1. January", "- 3 -"
    }
    paragraph.listItem = ListItem{mark, !bullet, 0};
    paragraph.role = Role::ListItem;
}

// Sets the separators between the lines and marks superscripts and subscripts.
void finishLines(std::vector<Line> &lines, bool keepBreaks, bool withMark)
{
    for (std::size_t i = 0; i < lines.size(); ++i) {
        markSuperscripts(lines[i], i == 0 && withMark ? 1 : 0);
        if (i + 1 < lines.size()) {
            lines[i].words.back().separator = lineEnd(lines[i], lines[i + 1].words.front().text, keepBreaks);
        }
    }
}

Paragraph makeParagraph(std::vector<Line> lines, const ParagraphColumn &column, const ParagraphTag &tag = {})
{
    Paragraph paragraph;
    paragraph.lines = std::move(lines);
    QString all;
    for (const Line &line : paragraph.lines) {
        all += plainText(line);
    }
    paragraph.rightToLeft = isRightToLeft(all);
    measure(paragraph, column);
    if (tag.paragraph) {
        setRole(paragraph, tag);
    }
    const bool guess =
        !tag.paragraph || !tag.paragraph->listsTagged || isBullet(paragraph.lines.front().words.front().text);
    if (paragraph.role == Role::Body && guess) {
        takeListMark(paragraph);
    }
    finishLines(paragraph.lines, isFixedPitch(paragraph.lines), paragraph.listItem.has_value());
    if (tag.paragraph) {
        keepMeantBreaks(paragraph, column.box);
    }
    paragraph.preformatted = isPreformatted(paragraph);
    return paragraph;
}

// Whether there is a space between two words of a text line, `right` the next one after `left`. Only what the PDF
// library itself found to be fragments of one word stays together.
bool isApart(const RawWord &left, const RawWord &right)
{
    const double size = left.style.size;
    const double gap = right.box.left - left.box.right;
    const bool inOrder = right.index == left.index + 1;
    const bool subscript = right.style.size < lineThresholds.maxShiftedSize * size && right.baseline > left.baseline &&
                           std::abs(gap) < thresholds.maxScriptOverlap * size;
    const bool stacked = gap < -thresholds.minBacktrack * size && right.baseline != left.baseline;
    if (inOrder && (subscript || stacked)) {
        return false;
    }
    return left.spaceAfter || !inOrder || gap > thresholds.minWordSpace * std::max(size, right.style.size);
}

Word wordOf(const RawWord &raw, StyleTable &styles)
{
    Word word;
    word.text = raw.text;
    word.box = raw.box;
    word.baseline = raw.baseline;
    word.rotation = raw.rotation;
    word.style = styles.add(raw.style);
    word.link = raw.link;
    word.confidence = raw.confidence;
    return word;
}

} // namespace

Line lineOf(const TextLine &textLine, StyleTable &styles, const std::vector<LineTab> &tabs)
{
    Line line;
    line.box = textLine.box;
    line.box.top = textLine.baseline - lineThresholds.ascent * textLine.size;
    line.box.bottom = textLine.baseline + lineThresholds.descent * textLine.size;
    line.baseline = textLine.baseline;
    line.words.reserve(textLine.words.size());
    for (std::size_t i = 0; i < textLine.words.size(); ++i) {
        line.words.push_back(wordOf(*textLine.words[i], styles));
        const bool apart = i + 1 == textLine.words.size() || isApart(*textLine.words[i], *textLine.words[i + 1]);
        line.words.back().separator = apart ? Separator::Space : Separator::None;
    }
    if (textLine.dropCapLines > 0) {
        line.words.front().separator = Separator::None;
    }
    for (const LineTab &tab : tabs) {
        for (std::size_t i = tab.end; i < tab.begin; ++i) {
            line.words[i].separator = Separator::Tab;
            line.words[i].leader = i > tab.end;
        }
    }
    const bool rightToLeft = isRightToLeft(joinedText(textLine.words));
    if (rightToLeft) { // the space after a word is then the one on its left
        for (std::size_t i = line.words.size(); i-- > 1;) {
            line.words[i].separator = line.words[i - 1].separator;
        }
        line.words.front().separator = Separator::Space;
    }
    orderWords(line.words, rightToLeft);
    return line;
}

std::vector<Paragraph> paragraphsOf(const std::vector<TextLine> &lines, const Box &column, StyleTable &styles)
{
    std::vector<Paragraph> paragraphs;
    const ParagraphBreaks breaks(lines, column);
    const auto atRightEdge = std::count_if(lines.begin(), lines.end(), [&column](const TextLine &line) {
        return column.right - line.box.right < lineThresholds.sameEdge;
    });
    const ParagraphColumn place{column, atRightEdge > 1};
    double lastBaseline = 0;
    for (std::size_t start = 0; start < lines.size();) {
        std::size_t end = start + 1;
        while (end < lines.size() && !breaks.startsAt(start, end)) {
            ++end;
        }
        std::vector<Line> own;
        for (std::size_t i = start; i < end; ++i) {
            own.push_back(lineOf(lines[i], styles, breaks.tabs(i)));
        }
        const auto at = [&lines](std::size_t i) { return lines.begin() + static_cast<std::ptrdiff_t>(i); };
        paragraphs.push_back(makeParagraph(std::move(own), place, tagOf({at(start), at(end)})));
        paragraphs.back().dropCapLines = lines[start].dropCapLines;
        setTabStops(paragraphs.back(), lines, start, end, breaks, column);
        if (start > 0) {
            const double step = lines[start].baseline - lastBaseline;
            paragraphs.back().spaceBefore = std::max(0.0, step - breaks.usualStep(lines[start].size));
        }
        lastBaseline = lines[end - 1].baseline;
        start = end;
    }
    return paragraphs;
}

std::vector<Paragraph> cellParagraphs(const WordRefs &words, const Box &cell, StyleTable &styles)
{
    WordRefs upright;
    std::vector<Paragraph> paragraphs;
    for (const RawWord *word : words) {
        if (word->rotation == 0) {
            upright.push_back(word);
        } else {
            Line line;
            line.box = word->box;
            line.baseline = word->baseline;
            line.rotation = word->rotation;
            line.words = {wordOf(*word, styles)};
            if (!paragraphs.empty() && paragraphs.back().rotation == word->rotation) {
                Line &last = paragraphs.back().lines.back();
                last.words.back().separator = lineEnd(last, word->text, false);
                paragraphs.back().box = united(paragraphs.back().box, line.box);
                paragraphs.back().lines.push_back(line);
            } else {
                paragraphs.push_back(makeParagraph({line}, {cell}));
                paragraphs.back().rotation = word->rotation;
            }
        }
    }
    for (Paragraph &paragraph : paragraphsOf(textLinesOf(std::move(upright)), cell, styles)) {
        paragraphs.push_back(std::move(paragraph));
    }
    return paragraphs;
}

bool isPreformatted(const Paragraph &paragraph)
{
    if (paragraph.rightToLeft || paragraph.rotation != 0 || paragraph.listItem) {
        return false;
    }
    bool broken = false;
    int letters = 0;
    int fixed = 0;
    const Word *before = nullptr;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            broken = broken || (before && before->separator == Separator::LineBreak);
            const int count = letterCount(word.text);
            letters += count;
            fixed += word.style->fixedPitch ? count : 0;
            before = &word;
        }
    }
    return broken && fixed > thresholds.minFixedPitch * letters;
}

} // namespace quorra::model
