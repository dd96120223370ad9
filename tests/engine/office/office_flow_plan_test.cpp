// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "writers/word/flow_fit.h"
#include "writers/word/flow_plan.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// The plan of a flowing text and its fitting to the page.
class OfficeFlowPlanTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemsKnowTheirSpaceAndLines();
    void picturesTakeTheirHeight();
    void picturesBehindTextTakeNoRoom();
    void columnsBreakWhereTheyBegin();
    void continuousTextKeepsNoWideSpaces();
    void linesOfOtherSectionsFillNoColumn();
    void pagesBeginWhereTheFormSays();
    void spacesGiveWayBeforeLines();
    void wideSpacesShrinkToALine();
    void dividedColumnsAreAsHighAsTheHighest();
    void lineBreaksAndNarrowColumnsMakeLines();
    void marksGoToTheNearestBlock();
    void columnsShareTheirText();
    void columnsBeginWithThePagesText();
    void picturesStandSideBySide();
    void sidewaysTextTakesNoRoom();
    void lineBelowTakesItsHeight();
};

namespace {

// The baseline is 2 points above the box's bottom; a line of its own is 12 points high, 9.6 of them above the baseline.
model::Block textAt(double top, double left = 72, int column = 0)
{
    return fixture::block(fixture::paragraph(QStringLiteral("text"), {left, top, left + 200, top + 12}), column);
}

model::Block pictureAt(const Box &box, bool behindText = false)
{
    model::Figure figure = fixture::figure(box, model::FigureKind::Image);
    figure.behindText = behindText;
    return {figure, 0};
}

model::Page pageOf(std::vector<model::Block> blocks)
{
    model::Page page = fixture::page();
    page.sections[0].blocks = std::move(blocks);
    return page;
}

const std::vector<FlowItem> &itemsOf(const FlowPage &plan)
{
    return plan.sections.front().items;
}

} // namespace

void OfficeFlowPlanTest::itemsKnowTheirSpaceAndLines()
{
    const model::Page page = pageOf({textAt(72), textAt(100)});
    const FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QCOMPARE(itemsOf(plan).size(), std::size_t(2));
    const FlowItem &second = itemsOf(plan)[1];
    QCOMPARE(second.lineHeight, 12.0);
    QCOMPARE(second.lines, 1);
    QCOMPARE(second.spaceAbove, 16.0); // 28 from baseline to baseline, less a line
    QCOMPARE(second.left, 72.0);
    QCOMPARE(second.right, 540.0);
}

void OfficeFlowPlanTest::picturesTakeTheirHeight()
{
    const model::Page page = pageOf({textAt(72), pictureAt({72, 100, 272, 150}), textAt(160)});
    const FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QCOMPARE(itemsOf(plan)[1].height, 50.0);
    QCOMPARE(itemsOf(plan)[1].spaceAbove, 100 - 84.4);
    QCOMPARE(itemsOf(plan)[2].spaceAbove, 160.4 - 150);
}

void OfficeFlowPlanTest::picturesBehindTextTakeNoRoom()
{
    const model::Page page = pageOf({pictureAt({72, 72, 540, 400}, true), textAt(100), textAt(130)});
    const FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QVERIFY(itemsOf(plan)[0].behindText);
    QCOMPARE(itemsOf(plan)[0].height, 0.0);
    QCOMPARE(itemsOf(plan)[1].spaceAbove, 100.4 - 72); // from the page's top
    FlowPage full = plan;
    full.room = 60; // the text with its spaces, without the picture
    QCOMPARE(fitOf(full).lines, 1.0);
    QVERIFY(!itemsOf(planPage(page, {}, flowForms::continuous))[0].behindText); // there is no page for it
}

void OfficeFlowPlanTest::columnsBreakWhereTheyBegin()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    page.sections[0].blocks = {textAt(72), textAt(72, 312, 1), textAt(100, 312, 1)};
    const FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QVERIFY(plan.sections[0].inColumns);
    QVERIFY(!itemsOf(plan)[0].beginsColumn);
    QVERIFY(itemsOf(plan)[1].beginsColumn);
    QVERIFY(!itemsOf(plan)[2].beginsColumn);
    const FlowPage below = planPage(page, {}, flowForms::inOneColumn);
    QVERIFY(!below.sections[0].inColumns);
    QVERIFY(!itemsOf(below)[1].beginsColumn);
}

void OfficeFlowPlanTest::continuousTextKeepsNoWideSpaces()
{
    const model::Page page = pageOf({textAt(72), textAt(400)});
    QCOMPARE(itemsOf(planPage(page, {}, flowForms::inOneColumn))[1].spaceAbove, 316.0);
    QCOMPARE(itemsOf(planPage(page, {}, flowForms::continuous))[1].spaceAbove, 12.0);
}

// A paragraph that goes on in the section below leaves the space between the sections as it is.
void OfficeFlowPlanTest::linesOfOtherSectionsFillNoColumn()
{
    model::Page page = fixture::page({{72, 72, 300, 100}, {312, 72, 540, 100}});
    model::Paragraph first = fixture::paragraph(QStringLiteral("begins"), {72, 72, 272, 84});
    first.lines.push_back(fixture::paragraph(QStringLiteral("ends"), {312, 300, 512, 312}).lines[0]);
    page.sections[0].blocks = {fixture::block(first)};
    page.sections.push_back({{{72, 110, 540, 320}}, {textAt(130)}});
    const FlowPage plan = planPage(page, {}, flowForms::inOneColumn);
    QCOMPARE(plan.sections[1].items[0].spaceAbove, 130.4 - 84.4);
}

void OfficeFlowPlanTest::pagesBeginWhereTheFormSays()
{
    model::Page scan = fixture::page();
    scan.scanned = true;
    const model::Document document =
        fixture::document({pageOf({textAt(72)}), pageOf({textAt(72)}), scan, pageOf({textAt(72)})});
    const auto newPages = [&](const FlowForm &form) {
        QList<bool> begins;
        for (const FlowPage &page : planFlow(document, form)) {
            begins.push_back(page.newPage);
        }
        return begins;
    };
    QCOMPARE(newPages(flowForms::inColumns), (QList<bool>{true, true, true, true}));
    QCOMPARE(newPages(flowForms::continuous), (QList<bool>{true, false, true, true}));
    QVERIFY(planFlow(document, flowForms::inColumns)[2].sections.empty());
}

void OfficeFlowPlanTest::spacesGiveWayBeforeLines()
{
    const model::Page page = pageOf({textAt(72), textAt(100), textAt(128)});
    FlowPage plan = planPage(page, {}, flowForms::inColumns);
    // 0.4 + 16 + 16 points of space, at least half of each, and three lines of 12 with 8 % of reserve.
    plan.room = 32.4 + 38.88 - 8.1;
    QCOMPARE(fitOf(plan).lines, 1.0);
    QCOMPARE(fitOf(plan).spaces, 0.5);
    fitToRoom(plan);
    QCOMPARE(itemsOf(plan)[1].spaceAbove, 12.0);
    QCOMPARE(itemsOf(plan)[1].lineHeight, 12.0);
    FlowPage tight = planPage(page, {}, flowForms::inColumns);
    tight.room = 32.4 / 2 + 38.88 - 1.944;
    QCOMPARE(fitOf(tight).spaces, 0.0);
    QCOMPARE(fitOf(tight).lines, 0.95);
    fitToRoom(tight);
    QCOMPARE(itemsOf(tight)[1].spaceAbove, 8.0);
}

void OfficeFlowPlanTest::wideSpacesShrinkToALine()
{
    const model::Page page = pageOf({textAt(72), textAt(600)});
    FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QCOMPARE(itemsOf(plan)[1].spaceAbove, 516.0);
    plan.room = 50; // two lines and a space of a line
    QCOMPARE(fitOf(plan).lines, 1.0);
    fitToRoom(plan);
    QVERIFY(itemsOf(plan)[1].spaceAbove >= 12 && itemsOf(plan)[1].spaceAbove < 24);
}

void OfficeFlowPlanTest::dividedColumnsAreAsHighAsTheHighest()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    for (int i = 0; i < 20; ++i) {
        page.sections[0].blocks.push_back(textAt(72 + 12 * i));
    }
    page.sections[0].blocks.push_back(textAt(72, 312, 1));
    FlowPage plan = planPage(page, {}, flowForms::inColumns);
    plan.room = 240; // 20 lines of 12 points, without reserve
    QVERIFY(fitOf(plan).lines < 1.0);
    plan.sections[0].items.back().beginsColumn = false; // the text can be balanced: 11 lines in each column
    QCOMPARE(fitOf(plan).lines, 1.0);
}

void OfficeFlowPlanTest::lineBreaksAndNarrowColumnsMakeLines()
{
    model::Paragraph verse = fixture::paragraph(QStringLiteral("one two three"), {72, 72, 272, 84});
    verse.lines[0].words[0].separator = model::Separator::LineBreak;
    verse.lines[0].words[1].separator = model::Separator::LineBreak;
    QCOMPARE(likelyLines(verse, 400), 3);
    const model::Paragraph single = fixture::paragraph(QStringLiteral("one two three"), {72, 72, 137, 84});
    QCOMPARE(likelyLines(single, 400), 1);
    QCOMPARE(likelyLines(single, 40), 2);
}

void OfficeFlowPlanTest::marksGoToTheNearestBlock()
{
    model::Page page = pageOf({textAt(72), textAt(300), textAt(600)});
    page.number = 4;
    page.comments = {{{100, 302, 140, 310}, QStringLiteral("A. Reader"), QStringLiteral("why?"), {}}};
    model::Document document = fixture::document({page, fixture::page()});
    document.pages[1].number = 5;
    document.facts.outline = {
        {QStringLiteral("2. The end"), 0, 4, 595.0 / 792},
        {QStringLiteral("The end"), 0, 4, 595.0 / 792},
        {QStringLiteral("the end!"), 0, 5, 0},
        {QStringLiteral("elsewhere"), 0, 9, 0}};
    const std::vector<FlowPage> pages = planFlow(document, flowForms::inColumns);
    QCOMPARE(pages[0].marks.bookmarks, QStringList{QStringLiteral("page4")});
    QVERIFY(itemsOf(pages[0])[0].marks.isEmpty());
    QCOMPARE(itemsOf(pages[0])[1].marks.comments.front(), &document.pages[0].comments.front());
    QCOMPARE(
        itemsOf(pages[0])[2].marks.bookmarks,
        (QStringList{QStringLiteral("section_2_The_end"), QStringLiteral("The_end")}));
    // A page without blocks keeps its marks itself.
    QCOMPARE(pages[1].marks.bookmarks, (QStringList{QStringLiteral("page5"), QStringLiteral("the_end_2")}));
}

void OfficeFlowPlanTest::columnsShareTheirText()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    for (int i = 0; i < 20; ++i) {
        page.sections[0].blocks.push_back(textAt(72 + 12 * i));
    }
    for (int i = 0; i < 20; ++i) {
        page.sections[0].blocks.push_back(textAt(72 + 12 * i, 312, 1));
    }
    FlowPage plan = planPage(page, {}, flowForms::inColumns);
    plan.room = 300; // 20 lines of 12 points fit, 40 do not
    QCOMPARE(fitOf(plan).lines, 1.0);
    FlowPage below = planPage(page, {}, flowForms::inOneColumn);
    below.room = 300;
    QVERIFY(fitOf(below).lines < 1.0);
}

// In the older format, LibreOffice begins a page with columns that have margins of their own.
void OfficeFlowPlanTest::columnsBeginWithThePagesText()
{
    const Margins margins{70, 72, 72, 72}; // the text ends at 540
    const auto sectionOf = [&margins](double left, const FlowForm &form) {
        model::Page page = fixture::page({{left, 72, 300, 720}, {312, 72, 545, 720}});
        page.sections[0].blocks = {textAt(72, left), textAt(72, 312, 1)};
        return planPage(page, margins, form).sections.front();
    };
    const FlowSection near = sectionOf(81, flowForms::inColumns);
    QCOMPARE(near.left, 70.0);
    QCOMPARE(near.right, 540.0);
    QCOMPARE(near.items[0].left, 70.0); // its text gets an indent of 11 points
    QCOMPARE(near.items[0].column.left, 81.0);
    QCOMPARE(near.items[1].right, 540.0);
    QCOMPARE(sectionOf(83, flowForms::inColumns).left, 83.0);
    QCOMPARE(sectionOf(83, forOldWord(flowForms::inColumns)).left, 70.0);
}

void OfficeFlowPlanTest::picturesStandSideBySide()
{
    const model::Page page = pageOf(
        {textAt(72), pictureAt({72, 100, 200, 150}), pictureAt({210, 110, 300, 160}), pictureAt({210, 140, 300, 200}),
         textAt(210)});
    const FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QVERIFY(!itemsOf(plan)[1].beside);
    QVERIFY(itemsOf(plan)[2].beside);
    QCOMPARE(itemsOf(plan)[2].spaceAbove, 0.0);
    QCOMPARE(itemsOf(plan)[2].height, 10.0); // below the first one
    QVERIFY(!itemsOf(plan)[3].beside);       // it stands below
    QVERIFY(!itemsOf(planPage(page, {}, flowForms::continuous))[2].beside);
}

void OfficeFlowPlanTest::sidewaysTextTakesNoRoom()
{
    model::Block sideways = textAt(72, 20);
    sideways.paragraph()->rotation = 270;
    const model::Page page = pageOf({sideways, textAt(72), textAt(100)});
    const FlowPage plan = planPage(page, {}, flowForms::inColumns);
    QVERIFY(itemsOf(plan)[0].sideways);
    QCOMPARE(itemsOf(plan)[1].spaceAbove, 0.4);
    QVERIFY(!itemsOf(planPage(page, {}, flowForms::inOneColumn))[0].sideways); // it has no frames
    QVERIFY(!itemsOf(planPage(pageOf({sideways, sideways, textAt(100)}), {}, flowForms::inColumns))[0].sideways);
}

void OfficeFlowPlanTest::lineBelowTakesItsHeight()
{
    model::Block lined = textAt(72);
    lined.paragraph()->borderBelow.line = {1, black};
    lined.paragraph()->borderBelow.gap = 4;
    const FlowPage plan = planPage(pageOf({lined, textAt(100)}), {}, flowForms::inColumns);
    QCOMPARE(itemsOf(plan)[0].height, 5.0);
    QCOMPARE(itemsOf(plan)[1].spaceAbove, 11.0);
}

QTEST_APPLESS_MAIN(OfficeFlowPlanTest)
#include "office_flow_plan_test.moc"
