// SPDX-License-Identifier: GPL-3.0-or-later
#include "../threshold_edges.h"
#include "office_fixture.h"

#include "odf/font_widths.h"
#include "writers/slides/slide_boxes.h"
#include "writers/slides/slide_fit.h"
#include "writers/slides/slide_lists.h"
#include "writers/slides/slide_table.h"
#include "writers/slides/slide_text.h"
#include "writers/slides/slide_title.h"

using namespace quorra;
using namespace quorra::office;
using namespace thresholdEdges;

namespace {

constexpr double em = 10; // the font size of all text

QString tenLetters()
{
    return QStringLiteral("nnnnnnnnnn");
}

/// A line of ten letters that is so many times as wide on the page as in its font.
model::Paragraph lineOfWidth(double ratio)
{
    model::Paragraph paragraph = fixture::paragraph(tenLetters(), {72, 100, 272, 112});
    model::Word &word = paragraph.lines[0].words[0];
    word.box.right = word.box.left + ratio * textWidth(tenLetters(), *word.style).value();
    return paragraph;
}

/// Two words of a line with a gap between them.
model::Paragraph wordsWithGap(double gap, const model::Style &style)
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("one two"), {72, 100, 900, 112}, style);
    std::vector<model::Word> &words = paragraph.lines[0].words;
    words[1].box.left = words[0].box.right + gap;
    words[1].box.right = words[1].box.left + 15;
    return paragraph;
}

model::Style typewriter()
{
    model::Style style = fixture::style();
    style.family = QStringLiteral("Liberation Mono");
    style.fixedPitch = true;
    return style;
}

qsizetype spacesIn(const model::Paragraph &paragraph)
{
    return runsByLine(paragraph)[0].text.count(u' ');
}

/// Whether the text of a cell of this height has this share of its font size.
bool hasSize(double height, double scale)
{
    model::Table table = fixture::table(1, {tenLetters()});
    table.rowEdges = {100, 100 + height};
    table.box = {72, 100, 172, 100 + height};
    table.cells[0].box = table.box;
    return fixture::odf(
               OdfKind::Presentation,
               [&](OdfFile &file) {
                   writeSlideTable({file.body(), file.styles()}, table);
               })
        .contains(QStringLiteral("fo:font-size=\"%1pt\"").arg(scale * em, 0, 'f', 1));
}

std::vector<Edge> fitEdges()
{
    return {
        {"width at which text shrinks", 0.9695, 0.9705, true, // letters come closer by 3 % before
         [](double ratio) { return fittingText(lineOfWidth(ratio), 500).scale < 1; }},
        {"width at which text shrinks no more", 0.7755, 0.7765, true,
         [](double ratio) { return qFuzzyCompare(fittingText(lineOfWidth(ratio), 500).scale, 0.8); }},
        {"letter spacing of wide text", 1.29, 1.31, true, // 0.15 em for letters of 0.5 em
         [](double ratio) {
             return std::abs(fittingText(lineOfWidth(ratio), 500).spacing - (ratio - 1) * 0.5 * em) < 0.03;
         }},
        most(
            "centred lines that keep their ends", 6,
            [](double count) {
                model::Paragraph paragraph = lineOfWidth(1);
                paragraph.alignment = model::Alignment::Centre;
                paragraph.lines.resize(static_cast<std::size_t>(count), paragraph.lines.front());
                return keepsLines(paragraph);
            }),
        minimum(
            "gap of several spaces", 0.65,
            [](double gap) { return spacesIn(wordsWithGap(gap * em, fixture::style())) > 1; }),
        most(
            "spaces between words", 80,
            [](double count) {
                return spacesIn(wordsWithGap(count * fixedPitchWidth * em, typewriter())) == std::lround(count);
            }),
        most(
            "spaces before a line of code", 200,
            [](double count) {
                model::Paragraph paragraph = fixture::paragraph(tenLetters(), {72, 100, 2000, 112}, typewriter());
                paragraph.lines.push_back(paragraph.lines[0]);
                paragraph.lines[0].words[0].box.left += count * fixedPitchWidth * em;
                return spacesIn(paragraph) == std::lround(count);
            }),
    };
}

std::vector<Edge> tableEdges()
{
    return {
        most(
            "cells of a table", 1000,
            [](double count) {
                model::Table table = fixture::table(1, {tenLetters()});
                table.cells.resize(static_cast<std::size_t>(count), table.cells[0]);
                return canBeTable(table);
            }),
        minimum( // the row has 0.3 points of padding above and below; lines are 0.95 em high
            "row in which text shrinks to fit", 0.6,
            [](double scale) { return hasSize(scale * 0.95 * em + 0.6, scale); }),
    };
}

// ---- boxes

model::Document pageWith(std::vector<model::Paragraph> paragraphs)
{
    model::Page page = fixture::page();
    page.width = 612;
    page.height = 792;
    for (model::Paragraph &paragraph : paragraphs) {
        page.sections[0].blocks.push_back(fixture::block(std::move(paragraph)));
    }
    return fixture::document({page});
}

std::size_t boxesFor(const Box &lower, model::Alignment alignment = model::Alignment::Left)
{
    model::Paragraph first = fixture::paragraph(tenLetters(), {72, 300, 272, 312});
    model::Paragraph second = fixture::paragraph(tenLetters(), lower);
    first.alignment = second.alignment = alignment;
    const model::Document document = pageWith({first, second});
    return slideBoxes(document.pages[0], document.facts).size();
}

std::vector<Edge> boxEdges()
{
    return {
        maximum( // lines are 1.2 em apart
            "gap in a box", 1.8,
            [](double gap) {
                const double top = 312 + gap * 1.2 * em;
                return boxesFor({72, top, 272, top + 12}) == 1;
            }),
        maximum(
            "overlap in a box", 0.5,
            [](double overlap) {
                const double top = 312 - overlap * 1.2 * em;
                return boxesFor({72, top, 272, top + 12}) == 1;
            }),
        minimum(
            "shared width in a box", 0.5,
            [](double share) {
                const double left = 272 - share * 100;
                return boxesFor({left, 314, left + 100, 326}) == 1;
            }),
        maximum( // the longer paragraph has the middle of the box
            "middles of centred paragraphs", 3,
            [](double offset) {
                return boxesFor({72, 314, 272 + 2 * offset, 326}, model::Alignment::Centre) == 1;
            }),
    };
}

// ---- titles and lists

/// A line of this font size.
model::Paragraph textAt(const QString &text, double top, double size)
{
    return fixture::paragraph(text, {72, top, 272, top + size}, fixture::style(size));
}

/// How many paragraphs the title has on a page with these paragraphs and with text of 10 points in its middle.
std::size_t titleParts(std::vector<model::Paragraph> paragraphs, const QString &outlineEntry = {})
{
    paragraphs.push_back(textAt(QString(20, u'm'), 500, em));
    const model::Document document = pageWith(std::move(paragraphs));
    model::FileFacts facts;
    if (!outlineEntry.isEmpty()) {
        model::OutlineEntry entry;
        entry.title = outlineEntry;
        entry.page = document.pages[0].number;
        facts.outline = {entry};
    }
    return slideTitle(document.pages[0], facts).size();
}

QString letters(double count)
{
    return QString(std::lround(count), u'n');
}

/// The page is 612 points wide.
constexpr double pageWidth = 612;

bool isCentred(double left, double right)
{
    const model::Document document = pageWith({fixture::paragraph(tenLetters(), {left, 72, right, 92})});
    const model::Page &page = document.pages[0];
    return titleParagraph({page.sections[0].blocks[0].paragraph()}, page).alignment == model::Alignment::Centre;
}

/// Whether a title that begins there ends as far from the right edge of the page.
bool isFrameSymmetric(double left)
{
    const model::Document document = pageWith({});
    model::Paragraph title = fixture::paragraph(tenLetters(), {left, 72, left + 100, 92});
    return qFuzzyCompare(titleFrame(title, document.pages[0]).box.right, pageWidth - left);
}

std::vector<Edge> titleEdges()
{
    return {
        minimum(
            "size of a title", 1.15, [](double size) { return titleParts({textAt(letters(5), 72, size * em)}) > 0; }),
        {"size of the first large text", 0.94, 0.96, false, // otherwise the title is the second one, with two parts
         [](double size) {
             return titleParts(
                        {textAt(letters(5), 72, size * 20), textAt(letters(6), 200, 20),
                         textAt(letters(7), 225, 20)}) == 1;
         }},
        maximum(
            "place of a title", 0.6, [](double top) { return titleParts({textAt(letters(5), top * 792, 20)}) > 0; }),
        maximum(
            "gap between the parts of a title", 0.8,
            [](double gap) {
                return titleParts({textAt(letters(5), 72, 20), textAt(letters(6), 92 + gap * 20, 20)}) == 2;
            }),
        most("letters of a title", 250, [](double count) { return titleParts({textAt(letters(count), 72, 20)}) > 0; }),
        fewest( // of 40
            "letters of an entry that is cut off", 20,
            [](double count) { return titleParts({textAt(letters(40), 72, em)}, letters(count)) > 0; }),
        fewest( // of 12
            "letters of a short entry that is cut off", 8,
            [](double count) { return titleParts({textAt(letters(12), 72, em)}, letters(count)) > 0; }),
        maximum(
            "title off the middle", 0.01,
            [](double off) { return isCentred(200, pageWidth - 200 + 2 * off * pageWidth); }),
        minimum(
            "blank beside a centred title", 0.15,
            [](double share) { return isCentred(share * pageWidth, (1 - share) * pageWidth); }),
        maximum("margin beside a title", 0.1, [](double share) { return isFrameSymmetric(share * pageWidth); }),
        minimum("narrow margin beside a title", 0.02, [](double share) { return isFrameSymmetric(share * pageWidth); }),
        maximum(
            "gap after a mark", 8,
            [](double hang) {
                model::Paragraph item = fixture::listItem(QStringLiteral("* text"), {72, 100, 272, 112});
                std::vector<model::Word> &words = item.lines[0].words;
                words[1].box.left = words[0].box.left + hang * em;
                return slideLists({item}).front().has_value();
            }),
    };
}

} // namespace

/// The thresholds of the writer of slides.
class OfficeSlideEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholdsDecide_data() { addRows(m_edges); }
    void thresholdsDecide() { checkRow(m_edges); }

private:
    std::vector<Edge> m_edges = joined({fitEdges(), tableEdges(), boxEdges(), titleEdges()});
};

QTEST_GUILESS_MAIN(OfficeSlideEdgesTest)
#include "office_slide_edges_test.moc"
