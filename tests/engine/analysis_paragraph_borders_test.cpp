// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/paragraphs/paragraph_borders.h"
#include "analysis/semantics/page_headers.h"
#include "document/page_transform.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

Paragraph paragraphAt(const Box &box)
{
    Paragraph paragraph;
    paragraph.box = box;
    return paragraph;
}

/// Two paragraphs below one another with a line between them, a red one below both and gray behind the lower one.
Page separatedPage()
{
    Page page;
    page.sections.push_back({{{72, 72, 540, 720}}, {}});
    page.sections[0].blocks = {{paragraphAt({72, 100, 300, 112}), 0}, {paragraphAt({72, 130, 300, 142}), 0}};
    page.rules = {{72, 120, 540, 120, 1, black}, {82, 150, 182, 150, 2, 0xff0000}, {72, 60, 80, 60, 1, 0}};
    page.fills = {{{60, 125, 400, 145}, 0xcccccc}};
    return page;
}

const Paragraph &at(const Page &page, std::size_t block)
{
    return *page.sections[0].blocks[block].paragraph();
}

} // namespace

class AnalysisParagraphBordersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesBelongToTheLowerParagraph()
    {
        Page page = separatedPage();
        findParagraphBorders(page);
        QCOMPARE(at(page, 0).borderAbove.line.width, 0.0);
        QCOMPARE(at(page, 0).borderBelow.line.width, 0.0);
        QVERIFY(!at(page, 0).shading);
        const Paragraph &lower = at(page, 1);
        QCOMPARE(lower.borderAbove.line.width, 1.0);
        QCOMPARE(lower.borderAbove.gap, 10.0);
        QVERIFY(!lower.borderAbove.partial);
        QCOMPARE(lower.borderBelow.line.colour, Colour(0xff0000));
        QCOMPARE(lower.borderBelow.gap, 8.0);
        QCOMPARE(lower.borderBelow.start, 10.0);
        QCOMPARE(lower.borderBelow.length, 100.0);
        QVERIFY(lower.borderBelow.partial);
        QCOMPARE(lower.shading.value_or(0), Colour(0xcccccc));
    }

    void linesAtAHeaderAreNoOtherParagraphs()
    {
        Page page = separatedPage();
        page.header = {paragraphAt({72, 152, 300, 164})};
        findParagraphBorders(page);
        QCOMPARE(at(page, 1).borderBelow.line.width, 0.0);
        QCOMPARE(page.header[0].borderAbove.line.width, 2.0);
        QCOMPARE(page.header[0].borderAbove.gap, 2.0);
    }

    void scalingAPageScalesItsBorders()
    {
        Page page = separatedPage();
        findParagraphBorders(page);
        StyleTable styles;
        transformPage(page, styles, {0.5, 2, 30, 40}, 306, 1584);
        const Paragraph &lower = at(page, 1);
        QCOMPARE(lower.borderBelow.line.width, 1.0); // by the smaller scale, as all lines
        QCOMPARE(lower.borderBelow.gap, 16.0);
        QCOMPARE(lower.borderBelow.start, 5.0);
        QCOMPARE(lower.borderBelow.length, 50.0);
        QCOMPARE(lower.shading.value_or(0), Colour(0xcccccc));
    }

    // Which paragraph a line belongs to is found where the text runs upright; its lengths count along the text.
    void bordersOfSidewaysPagesFollowTheirText()
    {
        PageMaker upright(1, 800, 600);
        upright.lines(50, 100, prose(3));
        upright.rule(50, 150, 400, 150);
        upright.lines(50, 170, prose(3));
        const Document expected = upright.build();
        const Document found = buildDocument({sideways(upright.raw())});
        QCOMPARE(at(found.pages[0], 1).rotation, 90);
        QCOMPARE(at(expected.pages[0], 1).borderAbove.gap, 12.0);
        QCOMPARE(at(found.pages[0], 1).borderAbove.gap, 12.0);
        QCOMPARE(at(found.pages[0], 1).borderAbove.length, 350.0);
        QCOMPARE(at(found.pages[0], 0).borderBelow.line.width, 0.0);
    }

    void shadingTurnsGrayAndVanishesInBlackAndWhite()
    {
        for (const ColourDepth depth : {ColourDepth::Gray, ColourDepth::Mono}) {
            Document document;
            document.pages.push_back(separatedPage());
            findParagraphBorders(document.pages[0]);
            reduceColours(document, depth);
            const Paragraph &lower = at(document.pages[0], 1);
            QCOMPARE(lower.borderBelow.line.colour, depth == ColourDepth::Gray ? Colour(0x4c4c4c) : black);
            QCOMPARE(lower.shading.has_value(), depth == ColourDepth::Gray);
        }
    }

    void theLowerHalfOfThePageIsItsFooter()
    {
        Page page;
        page.height = 800;
        page.header = {paragraphAt({10, 760, 50, 772}), paragraphAt({10, 20, 50, 32}), paragraphAt({60, 760, 99, 772})};
        separateFooter(page);
        QCOMPARE(page.header.size(), std::size_t(1));
        QCOMPARE(page.header[0].box.top, 20.0);
        QCOMPARE(page.footer.size(), std::size_t(2));
        QCOMPARE(page.footer[1].box.left, 60.0);
    }
};

QTEST_GUILESS_MAIN(AnalysisParagraphBordersTest)
#include "analysis_paragraph_borders_test.moc"
