// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_text.h"
#include "threshold_edges.h"

#include "analysis/columns/column_gaps.h"
#include "analysis/paragraphs/dehyphenation.h"
#include "analysis/paragraphs/paragraph_breaks.h"
#include "analysis/paragraphs/paragraphs.h"
#include "analysis/paragraphs/tabs.h"
#include "analysis/text_lines/leader_words.h"
#include "analysis/text_lines/list_mark.h"
#include "analysis/text_lines/superscripts.h"
#include "analysis/text_lines/word_fragments.h"

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

using Words = std::vector<RawWord>;

constexpr double em = 10;     // the font size of all text that says nothing else
constexpr double step = 12;   // the usual distance of baselines
constexpr double width = 400; // of the column
constexpr QLatin1String text("words");

// ---- text lines

bool isOneLine(Words words)
{
    return textLinesOf(refs(words)).size() == 1;
}

// A small word drawn so high above the end of a letter that their bodies do not overlap.
RawWord raised(double gap, double size, double aboveBody)
{
    const double top = 100 - textLines::thresholds.capHeight * em;
    return word(QStringLiteral("2"), 5 + gap, 4, top - aboveBody, size);
}

std::vector<Edge> textLineEdges()
{
    using textLines::thresholds;
    const double body = thresholds.capHeight * em;
    const auto letter = [] { return word(QStringLiteral("x"), 0, 5, 100); };
    return {
        minimum(
            "height that words of one line share", thresholds.minSharedHeight,
            [=](double share) {
                return isOneLine({word(text, 0, 30, 100), word(text, 40, 30, 100 + (1 - share) * body)});
            }),
        maximum(
            "size of a word that is no initial", thresholds.minInitialSize,
            [](double ratio) { // too low for an initial of this line
                return isOneLine({word(text, 0, 30, 100), word(QStringLiteral("W"), 200, 20, 105, ratio * em)});
            }),
        maximum(
            "baseline of an initial", thresholds.maxInitialShift,
            [](double shift) {
                return isOneLine(
                    {word(text, 0, 30, 100), word(QStringLiteral("W"), 200, 20, 100 + shift * em, 2 * em)});
            }),
        maximum(
            "size of a superscript above its line", thresholds.maxShiftedSize,
            [=](double size) {
                return isOneLine({letter(), raised(0, size * em, 3)});
            }),
        maximum(
            "gap before a superscript above its line", thresholds.maxShiftedGap,
            [=](double gap) {
                return isOneLine({letter(), raised(gap * em, 7, 3)});
            }),
        maximum(
            "height of a superscript above its line", thresholds.maxShiftedReach,
            [=](double reach) {
                return isOneLine({letter(), raised(0, 7, reach * em)});
            }),
        most(
            "number of superscripts above a line", thresholds.maxShiftedWords,
            [=](double count) {
                Words words;
                for (int i = 0; i < static_cast<int>(count); ++i) {
                    words.push_back(word(QStringLiteral("x"), 20 * i, 5, 100));
                    words.push_back(word(QStringLiteral("2"), 20 * i + 5, 4, 100 - body - 3, 7));
                }
                return isOneLine(std::move(words));
            }),
        maximum(
            "gap beside a larger word", thresholds.maxSizeRatio,
            [](double gap) {
                Words words{word(text, 0, 30, 100, 2 * em), word(text, 30 + gap * em, 30, 100)};
                return segmentsOf(textLinesOf(refs(words)).front(), 1).size() == 1;
            }),
    };
}

// ---- fragments of words

bool continues(double gap, double drop)
{
    RawWord first = word(QStringLiteral("g"), 0, 5, 100);
    first.spaceAfter = false;
    return continuesWord(first, word(QStringLiteral("2"), 5 + gap, 4, 100 + drop, 7));
}

bool isFraction(double gap, double drop, double size)
{
    RawWord before = word(text, 0, 30, 100);
    before.endsLine = false;
    RawWord lower = word(QStringLiteral("r"), 30 + gap, 4, 100 + drop, size);
    lower.spaceAfter = false;
    return isSmallFraction(before, lower, word(QStringLiteral("t"), 30 + gap, 4, 100 + drop - 8, size));
}

std::vector<Edge> fragmentEdges()
{
    using wordFragments::thresholds;
    const auto &lines = textLines::thresholds;
    return {
        maximum("gap in a word", lines.maxShiftedGap, [](double gap) { return continues(gap * em, 0); }),
        maximum(
            "baselines in a word", lines.maxBaselineDistance,
            [](double distance) { return continues(0, distance * em); }),
        maximum(
            "gap before a fraction", thresholds.maxFractionGap, [](double gap) { return isFraction(gap * em, 4, 8); }),
        maximum(
            "baseline of a fraction", thresholds.maxFractionShift,
            [](double shift) { return isFraction(0, shift * em, 8); }),
        maximum("size of a fraction", lines.maxShiftedSize, [](double size) { return isFraction(0, 4, size * em); }),
    };
}

// ---- superscripts and subscripts

Word placed(double left, double right, double baseline, double size)
{
    Word made;
    made.text = text;
    made.box = {left, baseline - 0.8 * size, right, baseline + 0.2 * size};
    made.baseline = baseline;
    Style style;
    style.size = size;
    made.style = testText::styled(style);
    return made;
}

// The shift of a short word that follows a long one.
BaselineShift shiftOf(double gap, double raise, double size)
{
    Line line;
    line.words = {placed(0, 30, 100, em), placed(30, 60, 100, em), placed(60 + gap, 65 + gap, 100 - raise, size)};
    markSuperscripts(line);
    return line.words.back().shift;
}

std::vector<Edge> superscriptEdges()
{
    using superscripts::thresholds;
    const auto &lines = textLines::thresholds;
    const auto isSuperscript = [](double gap, double raise, double size) {
        return shiftOf(gap, raise, size) == BaselineShift::Superscript;
    };
    return {
        minimum("raise", thresholds.minRaise, [=](double raise) { return isSuperscript(0, raise * em, 7); }),
        minimum(
            "drop", thresholds.minDrop,
            [](double drop) { return shiftOf(0, -drop * em, 7) == BaselineShift::Subscript; }),
        maximum("gap", textLines::thresholds.maxNoteMarkGap, [=](double gap) { return isSuperscript(gap * em, 4, 7); }),
        maximum("size", lines.maxShiftedSize, [=](double size) { return isSuperscript(0, 4, size * em); }),
        maximum("baseline", lines.maxBaselineDistance, [=](double raise) { return isSuperscript(0, raise * em, 7); }),
    };
}

// ---- column gaps

// Two columns of that many lines each. All lines begin at the column's edge; justified ones end below one another, too.
// Every third one begins in the middle of a sentence.
Words columns(int lines, bool justified, double indentOfOdd = 0)
{
    Words words;
    for (int i = 0; i < lines; ++i) {
        const double y = 100 + step * i;
        const double wide = justified ? 180 : 180 - 7 * (i % 4) * (i % 3 + 1) - i;
        const double indent = i % 2 == 1 ? indentOfOdd * i : 0;
        const QString begin = i % 3 == 0 ? QStringLiteral("goes") : QStringLiteral("Then");
        for (const double left : {0.0, 200 + indent}) {
            words.push_back(word(begin, left, 20, y));
            words.push_back(word(QStringLiteral("sixteen-letter-words"), left + 23, wide - 23 - indent, y));
        }
    }
    return words;
}

bool haveColumns(Words words)
{
    std::vector<ColumnGap> possible;
    return findColumnGap({refs(words), {}}, {}, possible).has_value();
}

// Two columns of that many lines of large type, with a gap between them.
bool isColumnGap(double gap)
{
    constexpr double size = 40; // large, because the search rounds to a bin's width
    Words words;
    for (int i = 0; i < 8; ++i) {
        const double y = 100 + 48 * i;
        words.push_back(word(QStringLiteral("sixteen-letter-words"), 0, 320, y, size));
        words.push_back(word(QStringLiteral("sixteen-letter-words"), 320 + gap * size, 320, y, size));
    }
    std::vector<ColumnGap> possible;
    return findColumnGap({refs(words), {}}, {}, possible).has_value();
}

// Lines of one word, the first one over the whole width.
bool isText(int lines, int letters, double lineWidth)
{
    Words words;
    for (int i = 0; i < lines; ++i) {
        words.push_back(word(QString(letters, QLatin1Char('a')), 0, i == 0 ? width : lineWidth, 100 + step * i));
    }
    return areProseLines(refs(words));
}

bool isTextWithNumbers(double share)
{
    constexpr int lines = 30;
    constexpr int perLine = 10;
    Words words;
    for (int line = 0; line < lines; ++line) {
        for (int i = 0; i < perLine; ++i) {
            const bool number = line * perLine + i < share * lines * perLine;
            const QString each = number ? QStringLiteral("12") : QStringLiteral("letters");
            words.push_back(word(each, 40 * i, 35, 100 + step * line));
        }
    }
    return areProseLines(refs(words));
}

// Two columns of lines that begin in capitals, unless told otherwise.
struct TwoColumns
{
    int lines = 20;
    int small = 10;   ///< of these begin with a small letter
    int cased = 20;   ///< these begin with a letter
    int aligned = 20; ///< these begin at the right column's edge
    bool known = false;
};

bool haveColumns(const TwoColumns &columns)
{
    Words words;
    for (int i = 0; i < columns.lines; ++i) {
        const double y = 100 + step * i;
        const QString begin = i < columns.small   ? QStringLiteral("goes")
                              : i < columns.cased ? QStringLiteral("Then")
                                                  : QStringLiteral("§");
        const double indent = i < columns.aligned ? 0 : 4 * (i - columns.aligned + 1);
        for (const double left : {0.0, 200 + indent}) {
            words.push_back(word(begin, left, 20, y));
            words.push_back(word(QStringLiteral("sixteen-letter-words"), left + 23, 155 - i % 4 * 3, y));
        }
    }
    std::vector<ColumnGap> possible;
    std::vector<ColumnGap> known;
    if (columns.known) {
        known.push_back({180, 200, 0, 100});
    }
    return findColumnGap({refs(words), {}}, known, possible).has_value();
}

// A column of text beside ten short texts, of which so many are on lines of the column.
bool isColumnBesideShortTexts(int shared)
{
    Words words;
    for (int i = 0; i < 10; ++i) {
        const double y = 100 + step * i;
        words.push_back(word(i % 3 == 0 ? QStringLiteral("goes") : QStringLiteral("Then"), 0, 20, y));
        words.push_back(word(QStringLiteral("sixteen-letter-words"), 23, 155 - i % 4 * 3, y));
        words.push_back(word(QStringLiteral("ab"), 200, 10, i < shared ? y : y + 6));
    }
    std::vector<ColumnGap> possible;
    return findColumnGap({refs(words), {}}, {}, possible).has_value();
}

std::vector<Edge> columnEdges()
{
    using columnGaps::thresholds;
    const auto letters = [](double count) { return static_cast<std::size_t>(count); };
    return {
        {"width of a column gap", 0.85 * thresholds.minWidth, 1.15 * thresholds.minWidth, false, isColumnGap},
        fewest(
            "lines beside a column gap", thresholds.minHeight,
            [](double count) { return haveColumns(columns(static_cast<int>(count), false)); }),
        fewest(
            "justified lines beside a column gap", thresholds.minJustifiedHeight,
            [](double count) { return haveColumns(columns(static_cast<int>(count), true)); }),
        fewest(
            "lines of running text", thresholds.minLines,
            [](double count) { return isText(static_cast<int>(count), 40, width); }),
        fewest(
            "letters of a line", letters(thresholds.minLetters),
            [](double count) { return isText(5, static_cast<int>(count), width); }),
        fewest(
            "letters of one of two lines", letters(thresholds.minLettersOfTwoLines),
            [](double count) { return isText(2, static_cast<int>(count), width); }),
        minimum("width of a line", thresholds.minLineWidth, [](double share) { return isText(5, 40, share * width); }),
        maximum("numbers in running text", thresholds.maxNumericWords, isTextWithNumbers),
        fewest( // of 20
            "lines that begin in the middle of a sentence", 3,
            [](double count) {
                return haveColumns(TwoColumns{20, static_cast<int>(count)});
            }),
        most(
            "lines in capitals that do not decide", thresholds.minCasedLines - 1,
            [](double count) {
                return haveColumns(TwoColumns{8, 0, static_cast<int>(count), 8});
            }),
        fewest( // of 10
            "lines that begin below one another", 6,
            [](double count) {
                return haveColumns(TwoColumns{10, 5, 10, static_cast<int>(count)});
            }),
        fewest( // of 10
            "lines that begin below one another beside a known gap", 4,
            [](double count) {
                return haveColumns(TwoColumns{10, 5, 10, static_cast<int>(count), true});
            }),
        most( // of 10
            "short texts on lines of a column", 5,
            [](double count) { return isColumnBesideShortTexts(static_cast<int>(count)); }),
    };
}

// ---- paragraphs

std::vector<Paragraph> paragraphs(Words words)
{
    static StyleTable styles;
    return paragraphsOf(textLinesOf(refs(words)), {0, 0, width, 800}, styles);
}

bool isOneParagraph(Words words)
{
    return paragraphs(std::move(words)).size() == 1;
}

// So many full lines, the last one at baseline 100.
Words full(int lines)
{
    Words words;
    for (int i = 0; i < lines; ++i) {
        words.push_back(word(text, 0, width, 100 - step * (lines - 1 - i)));
    }
    return words;
}

Words with(Words words, std::initializer_list<RawWord> more)
{
    words.insert(words.end(), more);
    return words;
}

RawWord centred(double wide, double baseline, double shift = 0)
{
    return word(text, (width - wide) / 2 + shift, wide, baseline);
}

std::vector<Edge> breakEdges()
{
    using paragraphBreaks::thresholds;
    return {
        maximum(
            "gap between paragraphs", thresholds.minGap,
            [](double gap) { return isOneParagraph(with(full(4), {word(text, 0, width, 100 + gap * step)})); }),
        minimum(
            "lines that are too close", thresholds.maxShrink,
            [](double share) {
                constexpr double wide = 20;
                return isOneParagraph(
                    {word(text, 0, width, 100), word(text, 0, width, 100 + wide), word(text, 0, width, 100 + 2 * wide),
                     word(text, 0, width, 100 + (2 + share) * wide)});
            }),
        maximum(
            "distance to the rest of a hyphenated word", thresholds.maxHyphenatedStep,
            [](double distance) {
                Words words = full(4);
                words.back().text = QStringLiteral("hyphen-");
                return isOneParagraph(with(words, {word(text, 0, width, 100 + distance * em)}));
            }),
        maximum(
            "larger line before", thresholds.maxSizeRatio,
            [](double ratio) {
                return isOneParagraph({word(text, 0, width, 100, ratio * em), word(text, 0, width, 100 + step)});
            }),
        minimum(
            "smaller line before", thresholds.minSizeRatio,
            [](double ratio) {
                return isOneParagraph({word(text, 0, width, 100, ratio * em), word(text, 0, width, 100 + step)});
            }),
        maximum(
            "indent", thresholds.minIndent,
            [](double indent) {
                return isOneParagraph(with(full(2), {word(text, indent * em, width - indent * em, 100 + step)}));
            }),
        maximum(
            "centred line off the middle", thresholds.centredTolerance,
            [](double share) {
                return isOneParagraph(
                    {centred(300, 100), centred(300, 100 + step), centred(200, 100 + 2 * step, share * width / 2)});
            }),
        minimum(
            "width of a centred line", thresholds.minCentredWidth,
            [](double share) {
                return isOneParagraph(
                    {centred(300, 100), centred(share * width, 100 + step), centred(300, 100 + 2 * step)});
            }),
        maximum(
            "room for the next word", thresholds.wordSpace,
            [](double space) {
                const double next = 20;
                return isOneParagraph(
                    {word(text, 0, width - next - space * em, 100),
                     word(QStringLiteral("Capital"), 0, next, 100 + step),
                     word(text, next + 3, width - next - 3, 100 + step)});
            }),
        maximum(
            "empty end of a line in a sentence", thresholds.minEmptyShare,
            [](double share) {
                const double room = share * width + width / 10 + thresholds.wordSpace * em;
                return isOneParagraph(
                    {word(text, 0, width - room, 100), word(text, 0, width / 10, 100 + step),
                     word(text, width / 10 + 3, width * 0.9 - 3, 100 + step)});
            }),
    };
}

// ---- the usual distance of lines

// So many lines of that width at that distance; in points.
double usualStep(int lines, double distance, double lineWidth)
{
    Words words;
    for (int i = 0; i < lines; ++i) {
        words.push_back(word(text, 0, lineWidth, 100 + distance * i));
    }
    const std::vector<TextLine> found = textLinesOf(refs(words));
    return ParagraphBreaks(found, {0, 0, width, 800}).usualStep(em);
}

// Three lines, the third of which is off the middle of a column so narrow that a share of its width is too little.
std::size_t paragraphsInNarrowColumn(double shift)
{
    constexpr double narrow = 100;
    const auto line = [](double wide, double baseline, double moved) {
        return word(text, (narrow - wide) / 2 + moved, wide, baseline);
    };
    Words words{line(70, 100, 0), line(70, 100 + step, 0), line(50, 100 + 2 * step, shift)};
    StyleTable styles;
    return paragraphsOf(textLinesOf(refs(words)), {0, 0, narrow, 800}, styles).size();
}

std::vector<Edge> stepEdges()
{
    using paragraphBreaks::thresholds;
    constexpr double partly = 100; // short lines
    return {
        minimum(
            "close lines that count", thresholds.minSampleStep,
            [](double distance) { return usualStep(4, distance * em, partly) < thresholds.defaultStep * em; }),
        maximum(
            "distant lines that count", thresholds.maxSampleStep,
            [](double distance) { return usualStep(4, distance * em, partly) > 2 * em; }),
        maximum(
            "distance of full lines", thresholds.maxFullStep,
            [](double distance) { return usualStep(4, distance * em, width) > 2 * em; }),
        fewest(
            "full lines", thresholds.minFullSteps,
            [](double count) { return usualStep(static_cast<int>(count) + 1, 2.5 * em, width) > 2 * em; }),
        maximum(
            "least usual distance", thresholds.minUsualStep,
            [](double distance) { return usualStep(4, distance * em, partly) > distance * em + 0.01; }),
        minimum(
            "largest usual distance", thresholds.maxUsualStep,
            [](double distance) { return usualStep(4, distance * em, width) < distance * em - 0.01; }),
        maximum(
            "gap between close lines", thresholds.minGap * thresholds.minOwnStep,
            [](double gap) {
                const double close = 0.9 * em;
                return isOneParagraph(
                    {word(text, 0, width, 100), word(text, 0, width, 100 + close),
                     word(text, 0, width, 100 + 2 * close), word(text, 0, width, 100 + 2 * close + gap * em)});
            }),
        maximum(
            "distances of the lines of a paragraph", thresholds.sameStep,
            [](double share) {
                constexpr double wide = 20;
                return paragraphs(with(
                                      full(4), {word(text, 0, width, 140), word(text, 0, width, 140 + wide),
                                                word(text, 0, width, 140 + wide + (1 + share) * wide)}))
                           .size() == 2;
            }),
        fewest(
            "words of a line in another direction", thresholds.minDirectionWords,
            [](double count) {
                Words words;
                for (int i = 0; i < static_cast<int>(count); ++i) {
                    const double wide = width / count;
                    words.push_back(word(text, wide * i, wide - 3, 100));
                    words.push_back(word(QString::fromUtf8("שלום"), wide * i, wide - 3, 100 + step));
                }
                return !isOneParagraph(words);
            }),
        maximum(
            "centred line in a narrow column", thresholds.minCentredTolerance / 2,
            [](double shift) { return paragraphsInNarrowColumn(shift) == 1; }),
    };
}

Alignment alignmentOf(Words words)
{
    return paragraphs(std::move(words)).front().alignment;
}

bool hasTab(double gap)
{
    const std::vector<Paragraph> found =
        paragraphs({word(text, 0, 30, 100), word(text, 33, 30, 100), word(text, 63 + gap, 30, 100)});
    return !found.front().tabStops.empty();
}

bool hasLeader(double dots)
{
    const QString leader(static_cast<int>(dots), QLatin1Char('.'));
    const std::vector<Paragraph> found =
        paragraphs({word(text, 0, 30, 100), word(leader, 33, 20, 100), word(QStringLiteral("7"), 56, 5, 100)});
    return !found.front().tabStops.empty() && found.front().tabStops.front().leader;
}

// A letter of that size beside two close lines, at that distance from them.
bool hasDropCap(double size, double gap)
{
    constexpr double close = 9;
    const double right = 0.6 * size * em;
    const std::vector<Paragraph> found = paragraphs(
        {word(QStringLiteral("T"), 0, right, 99 + close, size * em), word(text, right + gap * em, 100, 100),
         word(text, right + gap * em, 100, 100 + close)});
    return found.front().dropCapLines > 0;
}

// A text after a tab.
TabStop stopOfTextAt(double left, double right)
{
    return paragraphs({word(text, 0, 30, 100), word(text, 33, 30, 100), word(text, left, right - left, 100)})
        .front()
        .tabStops.front();
}

// A letter as high as two lines, beside so many.
bool hasDropCapBeside(int lines)
{
    constexpr double close = 9;
    Words words{word(QStringLiteral("T"), 0, 12, 99 + close, 2 * em)};
    for (int i = 0; i < 2; ++i) {
        words.push_back(word(text, i < lines ? 14 : 0, 100, 100 + (i < lines ? i : 3) * close));
    }
    return paragraphs(words).front().dropCapLines > 0;
}

std::vector<Edge> tabEdges()
{
    return {
        minimum(
            "gap among wide spaces", tabs::thresholds.minUsualGaps,
            [](double times) {
                constexpr double space = 1.5 * em;
                return !paragraphs({word(text, 0, 30, 100), word(text, 30 + space, 30, 100),
                                    word(text, 60 + 2 * space, 30, 100), word(text, 90 + (2 + times) * space, 30, 100)})
                            .front()
                            .tabStops.empty();
            }),
        maximum(
            "text at the right edge", tabs::thresholds.sameColumnEdge,
            [](double distance) { return stopOfTextAt(300, width - distance).alignment == Alignment::Right; }),
        maximum(
            "text in the middle", tabs::thresholds.centred,
            [](double distance) {
                return stopOfTextAt(180 + distance, 220 + distance).alignment == Alignment::Centre;
            }),
        maximum(
            "line below the text after a tab", tabs::thresholds.hanging,
            [](double shift) {
                return isOneParagraph(
                    {word(text, 0, 30, 100), word(text, 33, 30, 100), word(text, 150, 250, 100),
                     word(text, 150 + shift * em, 200, 100 + step)});
            }),
        minimum(
            "gap after a mark that may be a number", listMarks::thresholds.minSpacedGap,
            [](double gap) {
                return isSpaced({gap * em, 1}, em);
            }),
        minimum(
            "gap after a mark in a justified line", listMarks::thresholds.minGapRatio,
            [](double ratio) {
                return isSpaced({ratio * 8, 8}, em);
            }),
        maximum(
            "text under a drop cap", textLines::thresholds.maxDropCapOverlap,
            [](double overlap) { return hasDropCap(2, -overlap); }),
        fewest(
            "lines beside a drop cap", textLines::thresholds.minDropCapLines,
            [](double count) { return hasDropCapBeside(static_cast<int>(count)); }),
        minimum("gap of a tab", tabs::thresholds.minGap, [](double gap) { return hasTab(gap * em); }),
        fewest("dots of a leader", static_cast<std::size_t>(leaderWords::thresholds.minDots), hasLeader),
        minimum(
            "size of a drop cap", textLines::thresholds.minInitialSize,
            [](double size) { return hasDropCap(size, 0.2); }),
        maximum(
            "gap beside a drop cap", textLines::thresholds.maxDropCapGap,
            [](double gap) { return hasDropCap(2, gap); }),
    };
}

std::vector<Edge> paragraphEdges()
{
    using model::paragraphs::thresholds;
    return {
        maximum(
            "single line off the middle", thresholds.centredTolerance,
            [](double share) { return alignmentOf({centred(200, 100, share * width / 2)}) == Alignment::Centre; }),
        maximum(
            "one of several lines off the middle", thresholds.sameCentre,
            [](double shift) {
                return alignmentOf({centred(300, 100), centred(200, 100 + step, shift)}) == Alignment::Centre;
            }),
        minimum(
            "inset of a centred line", thresholds.minInset,
            [](double share) { return alignmentOf({centred((1 - 2 * share) * width, 100)}) == Alignment::Centre; }),
        minimum(
            "inset of a right-aligned line", thresholds.minRightInset,
            [](double share) {
                return alignmentOf({word(text, share * width, (1 - share) * width, 100)}) == Alignment::Right;
            }),
        minimum(
            "gap after a list mark", thresholds.minMarkGap,
            [](double gap) {
                return paragraphs({word(QStringLiteral("1."), 0, 10, 100), word(text, 10 + gap * em, 200, 100)})
                    .front()
                    .listItem.has_value();
            }),
        minimum(
            "word space", thresholds.minWordSpace,
            [](double gap) {
                Words words{word(text, 0, 30, 100), word(text, 30 + gap * em, 30, 100)};
                words.front().spaceAfter = false;
                return paragraphs(words).front().lines.front().words.front().separator == Separator::Space;
            }),
        fewest(
            "letters of fixed pitch in preformatted text",
            static_cast<std::size_t>(std::lround(100 * thresholds.minFixedPitch)) + 1,
            [](double count) {
                const int fixed = static_cast<int>(count);
                Style typewriter;
                typewriter.fixedPitch = true;
                Paragraph paragraph;
                paragraph.lines = {
                    testText::lineOf(QString(fixed, QLatin1Char('a')), typewriter),
                    testText::lineOf(QString(100 - fixed, QLatin1Char('a')))};
                paragraph.lines.front().words.back().separator = Separator::LineBreak;
                return isPreformatted(paragraph);
            }),
        fewest(
            "length of a hyphenated word", static_cast<std::size_t>(dehyphenation::thresholds.minLength),
            [](double count) {
                const QString letters(static_cast<int>(count) - 1, QLatin1Char('a'));
                return endsInHyphen(letters + QLatin1Char('-'), text);
            }),
    };
}

} // namespace

class AnalysisTextEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textLines_data() { addRows(textLineEdges()); }
    void textLines() { checkRow(textLineEdges()); }
    void wordFragments_data() { addRows(fragmentEdges()); }
    void wordFragments() { checkRow(fragmentEdges()); }
    void superscripts_data() { addRows(superscriptEdges()); }
    void superscripts() { checkRow(superscriptEdges()); }
    void columnGaps_data() { addRows(columnEdges()); }
    void columnGaps() { checkRow(columnEdges()); }

    // Wide spaces that happen to stand below one another: the text beside them does not begin below itself.
    void aRiverIsNoColumnGap()
    {
        QVERIFY(haveColumns(columns(8, false)));
        QVERIFY(!haveColumns(columns(8, false, 5)));
    }
    void paragraphBreaks_data() { addRows(breakEdges()); }
    void paragraphBreaks() { checkRow(breakEdges()); }
    void usualSteps_data() { addRows(stepEdges()); }
    void usualSteps() { checkRow(stepEdges()); }
    void tabs_data() { addRows(tabEdges()); }
    void tabs() { checkRow(tabEdges()); }

    // Dots that are drawn together with the words of an entry. Each is as wide as a dot can be at this font size.
    void leadersAreCutOffTheirWords()
    {
        Words words{word(QStringLiteral("Contents.....4"), 100, 70, 100), word(QStringLiteral("so...."), 200, 30, 100)};
        cutLeadersOff(words);
        QCOMPARE(words.size(), std::size_t(4));
        QCOMPARE(words[0].text, QStringLiteral("Contents"));
        QCOMPARE(words[1].text, QStringLiteral("....."));
        QCOMPARE(words[2].text, QStringLiteral("4"));
        QCOMPARE(words[3].text, QStringLiteral("so....")); // an ellipsis
        QCOMPARE(words[0].box.left, 100.0);
        QCOMPARE(words[1].box.left, words[0].box.right);
        QCOMPARE(words[1].box.width(), 5 * leaderWords::thresholds.dotWidth * em);
        QCOMPARE(words[2].box.left, words[1].box.right);
        QCOMPARE(words[2].box.right, 170.0);
        QVERIFY(words[0].spaceAfter && !words[0].endsLine && words[2].endsLine);
    }

    // Where the text runs in another direction, or is nothing but dots, words stay whole.
    void otherLeadersStay()
    {
        Words words{word(QStringLiteral("Contents....."), 100, 70, 100), word(QStringLiteral("......"), 200, 30, 100)};
        words.front().rotation = 90;
        cutLeadersOff(words);
        QCOMPARE(words.size(), std::size_t(2));
        QCOMPARE(words.front().text, QStringLiteral("Contents....."));
    }
    void paragraphs_data() { addRows(paragraphEdges()); }
    void paragraphs() { checkRow(paragraphEdges()); }
};

QTEST_APPLESS_MAIN(AnalysisTextEdgesTest)
#include "analysis_text_edges_test.moc"
