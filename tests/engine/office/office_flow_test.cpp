// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "word/word_flow.h"

#include <QTest>
#include <QTimeZone>

using namespace quorra;
using namespace quorra::office;

/// Flowing text documents made of hand-made pages.
class OfficeFlowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsParagraphsAndTheirLook();
    void writesHeadingsBulletsAndNumbers();
    void namedStylesCarryTheLook();
    void tightLinesShrinkWithTheFont();
    void bookmarksStandInTheColumns();
    void bookmarkOfPageThatBeginsWithFigure();
    void countsListsOverOtherText();
    void writesListsInCells();
    void contentsAreFields();
    void paragraphsHaveLanguages();
    void keepsColumnsOnlyWhereAsked();
    void keepsPageBreaksAndSizes();
    void putsHeaderAndFooterIntoThePage();
    void dropsPageHeadersInContinuousText();
    void writesTablesWithSpans();
    void keepsLinksThatAreSafe();
    void placesPictures();
    void putsPicturesSideBySide();
    void putsSidewaysTextIntoFrames();
    void turnsTextInCells();
    void lineAboveThePageIsInItsMargin();
    void writesScansAsPages();
    void dropsCharactersThatXmlCannotHold();
    void malformedOutputIsNoticed();
    void writesBookmarksAndComments();
    void statesMetadataAndLanguage();
    void stylesWithoutAParentStayWhole();
    void balancesColumns();
};

namespace {

QString flow(const model::Document &document, const FlowForm &form = flowForms::inColumns)
{
    fixture::Pictures pictures;
    return fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeFlow(file, document, pictures, form); });
}

model::Document oneBlock(model::Paragraph paragraph)
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(std::move(paragraph))};
    return fixture::document({page});
}

} // namespace

void OfficeFlowTest::keepsParagraphsAndTheirLook()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("plain"), {72, 72, 300, 84});
    model::Style loud = fixture::style(14, true);
    loud.italic = true;
    loud.colour = 0x123abc;
    loud.family = QStringLiteral("Courier New");
    loud.fixedPitch = true;
    fixture::addWord(paragraph, QStringLiteral("loud"), loud);
    paragraph.alignment = model::Alignment::Centre;
    const QString text = flow(oneBlock(paragraph));
    QCOMPARE(fixture::paragraphs(text), QStringList{QStringLiteral("plain loud")});
    for (const char *part :
         {"fo:color=\"#123abc\"", "fo:font-size=\"14.0pt\"", "fo:font-weight=\"bold\"", "fo:font-style=\"italic\"",
          "style:font-name=\"Courier New\"", "style:font-pitch=\"fixed\"", "fo:text-align=\"center\"",
          "fo:page-width=\"612.00pt\"", "fo:margin-left=\"72.00pt\""}) {
        QVERIFY2(text.contains(QLatin1String(part)), part);
    }
}

void OfficeFlowTest::writesHeadingsBulletsAndNumbers()
{
    model::Page page = fixture::page();
    model::Paragraph heading = fixture::paragraph(QStringLiteral("Title"), {72, 72, 200, 90});
    heading.role = model::Role::Heading;
    heading.headingLevel = 2;
    model::Paragraph bullet = fixture::listItem(QStringLiteral("\u2022 first"), {90, 100, 200, 112});
    bullet.listItem->level = 1;
    model::Paragraph number = fixture::listItem(QStringLiteral("(iv) second"), {90, 120, 200, 132});
    number.listItem->ordered = true;
    number.firstLineIndent = -18;
    page.sections[0].blocks = {fixture::block(heading), fixture::block(bullet), fixture::block(number)};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(
        fixture::paragraphs(text),
        (QStringList{QStringLiteral("Title"), QStringLiteral("first"), QStringLiteral("second")}));
    QVERIFY(text.contains(QLatin1String("<text:h ")));
    QVERIFY(text.contains(QLatin1String("text:outline-level=\"2\"")));
    QCOMPARE(text.count(QLatin1String("<text:list-item>")), 3); // the bullet is nested to the second level
    QVERIFY(text.contains(QStringLiteral("text:bullet-char=\"\u2022\"")));
    QVERIFY(text.contains(
        QLatin1String("style:num-format=\"i\" style:num-prefix=\"(\" style:num-suffix=\")\" text:start-value=\"4\"")));
}

void OfficeFlowTest::namedStylesCarryTheLook()
{
    model::Page page = fixture::page();
    for (const double top : {72.0, 84.0, 96.0}) {
        page.sections[0].blocks.push_back(
            fixture::block(fixture::paragraph(QStringLiteral("plain"), {72, top, 97, top + 12}, fixture::style(9.5))));
    }
    page.sections[0].blocks.push_back(
        fixture::block(fixture::paragraph(QStringLiteral("bold"), {72, 108, 92, 120}, fixture::style(9.5, true))));
    const QString text = flow(fixture::document({page}));
    const QString automatic = text.section(QLatin1String("<office:automatic-styles>"), 1)
                                  .section(QLatin1String("</office:automatic-styles>"), 0, 0);
    QCOMPARE(text.count(QLatin1String("fo:font-size=\"9.5pt\"")), 1); // of the named style
    QVERIFY(!automatic.contains(QLatin1String("fo:font-size=\"9.5pt\"")));
    QCOMPARE(automatic.count(QLatin1String("fo:font-weight=\"bold\"")), 1);
    QVERIFY(!automatic.contains(QLatin1String("fo:font-weight=\"normal\"")));
    QVERIFY(text.contains(QLatin1String("style:line-height-at-least=")));
}

void OfficeFlowTest::tightLinesShrinkWithTheFont()
{
    model::Paragraph tight = fixture::paragraph(QStringLiteral("one"), {72, 72, 300, 100}, fixture::style(20));
    tight.lines.push_back(tight.lines[0]);
    tight.lines[1].baseline += 20;
    tight.lineDistance = 20;
    QVERIFY(flow(oneBlock(tight)).contains(QLatin1String("fo:line-height=\"87%\"")));
}

void OfficeFlowTest::bookmarkOfPageThatBeginsWithFigure()
{
    model::Page page = fixture::page({{72, 72, 540, 720}});
    page.sections[0].blocks = {
        {fixture::figure({72, 100, 172, 200}, model::FigureKind::Image), 0},
        fixture::block(fixture::paragraph(QStringLiteral("text"), {72, 220, 300, 232}))};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<text:bookmark ")), 1);
    // The space keeps the bookmark single in .docx files.
    QVERIFY(text.contains(QLatin1String("<text:bookmark text:name=\"page1\"/><text:s/><draw:frame")));
}

void OfficeFlowTest::bookmarksStandInTheColumns()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    page.sections[0].blocks = {
        fixture::block(fixture::paragraph(QStringLiteral("left"), {72, 72, 300, 84})),
        fixture::block(fixture::paragraph(QStringLiteral("right"), {312, 72, 540, 84}), 1)};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<text:bookmark ")), 1);
    QVERIFY(text.contains(QLatin1String("<text:bookmark text:name=\"page1\"/>left")));
}

void OfficeFlowTest::countsListsOverOtherText()
{
    model::Page page = fixture::page();
    const auto add = [&page](model::Paragraph item) {
        page.sections[0].blocks.push_back(fixture::block(std::move(item)));
    };
    const auto number = [](const QString &text, double top, int level = 0) {
        model::Paragraph item = fixture::listItem(text, {90, top, 300, top + 12});
        item.listItem->ordered = true;
        item.listItem->level = level;
        return item;
    };
    add(number(QStringLiteral("1. one"), 72));
    add(number(QStringLiteral("a) inner"), 90, 1));
    add(fixture::paragraph(QStringLiteral("between"), {72, 110, 300, 122}));
    add(number(QStringLiteral("2. two"), 130));
    add(number(QStringLiteral("5. five"), 150));
    add(fixture::paragraph(QStringLiteral("other"), {72, 170, 300, 182}));
    add(number(QStringLiteral("1. new"), 190));
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("xml:id=\"list")), 2);
    QCOMPARE(text.count(QLatin1String("<text:list-style ")), 2); // equal, but not to be counted together
    QCOMPARE(text.count(QLatin1String("text:continue-list=\"list1\"")), 3);
    QCOMPARE(text.count(QLatin1String("<text:list-item text:start-value=\"5\">")), 1);
}

void OfficeFlowTest::writesListsInCells()
{
    model::Page page = fixture::page();
    model::Table table = fixture::table(1, {QString()});
    for (const char *item : {"(a) first", "(b) second"}) {
        table.cells[0].paragraphs.push_back(fixture::listItem(QString::fromLatin1(item), {80, 102, 160, 112}));
        table.cells[0].paragraphs.back().listItem->ordered = true;
    }
    page.sections[0].blocks.push_back({table, 0});
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<text:list ")), 2);
    QVERIFY(fixture::paragraphs(text).contains(QStringLiteral("second")));
}

void OfficeFlowTest::contentsAreFields()
{
    const auto entry = [](const QString &text, double top, int level) {
        model::Paragraph made = fixture::paragraph(text, {72, top, 300, top + 12});
        made.contentsEntry = model::ContentsEntry{level, {}, {}};
        return fixture::block(made);
    };
    model::Paragraph heading = fixture::paragraph(QStringLiteral("before"), {72, 72, 300, 84});
    heading.role = model::Role::Heading;
    heading.headingLevel = 1;
    model::Page page = fixture::page();
    page.sections[0].blocks = {
        fixture::block(heading), entry(QStringLiteral("first"), 90, 0), entry(QStringLiteral("inner"), 110, 1),
        fixture::block(fixture::paragraph(QStringLiteral("after"), {72, 130, 300, 142}))};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<text:table-of-content ")), 1);
    const QString inside =
        text.section(QLatin1String("<text:index-body>"), 1).section(QLatin1String("</text:index-body>"), 0, 0);
    QVERIFY(inside.contains(QLatin1String("first")) && inside.contains(QLatin1String("inner")));
    QVERIFY(!inside.contains(QLatin1String("before")) && !inside.contains(QLatin1String("after")));
    QVERIFY(text.contains(QLatin1String("style:parent-style-name=\"Contents_20_2\"")));
    QVERIFY(text.contains(QLatin1String("style:parent-style-name=\"Contents_20_Heading\"")));
    QVERIFY(!text.contains(QLatin1String("<text:h ")));
}

void OfficeFlowTest::paragraphsHaveLanguages()
{
    model::Paragraph foreign = fixture::paragraph(QStringLiteral("ord"), {72, 72, 300, 84});
    foreign.language = QStringLiteral("sv-SE");
    const QString text = flow(oneBlock(foreign));
    QVERIFY(text.contains(QLatin1String("fo:language=\"sv\"")));
    QVERIFY(text.contains(QLatin1String("fo:country=\"SE\"")));
}

void OfficeFlowTest::keepsColumnsOnlyWhereAsked()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    page.sections[0].blocks = {
        fixture::block(fixture::paragraph(QStringLiteral("left"), {72, 72, 300, 84})),
        fixture::block(fixture::paragraph(QStringLiteral("right"), {312, 72, 540, 84}), 1)};
    const QString columns = flow(fixture::document({page}));
    QVERIFY(columns.contains(QLatin1String("fo:column-count=\"2\"")));
    const QString without = flow(fixture::document({page}), flowForms::inOneColumn);
    QVERIFY(!without.contains(QLatin1String("fo:column-count")));
    QVERIFY(without.contains(QLatin1String("fo:margin-left=\"240.00pt\""))); // the second column's place
    QVERIFY(
        !flow(fixture::document({page}), flowForms::continuous).contains(QLatin1String("fo:margin-left=\"240.00pt\"")));
}

void OfficeFlowTest::keepsPageBreaksAndSizes()
{
    model::Page first = fixture::page();
    first.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("one"), {72, 72, 300, 84}))};
    model::Page second = first;
    second.number = 2;
    model::Page wide = first;
    wide.number = 3;
    wide.width = 842;
    wide.height = 595;
    const QString text = flow(fixture::document({first, second, wide}));
    QCOMPARE(text.count(QLatin1String("fo:break-before=\"page\"")), 1);
    QCOMPARE(text.count(QLatin1String("<style:master-page ")), 2);
    QVERIFY(text.contains(QLatin1String("style:print-orientation=\"landscape\"")));
    QVERIFY(
        !flow(fixture::document({first, second}), flowForms::continuous).contains(QLatin1String("fo:break-before")));
}

void OfficeFlowTest::putsHeaderAndFooterIntoThePage()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("body"), {72, 72, 300, 84}))};
    model::Paragraph left = fixture::paragraph(QStringLiteral("Report"), {72, 30, 120, 42});
    left.role = model::Role::PageHeader;
    model::Paragraph right = fixture::paragraph(QStringLiteral("7"), {530, 30, 540, 42});
    right.role = model::Role::PageHeader;
    model::Paragraph foot = fixture::paragraph(QStringLiteral("foot"), {72, 750, 120, 762});
    foot.role = model::Role::PageHeader;
    page.header = {right, left};
    page.footer = {foot};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(
        fixture::paragraphs(text),
        (QStringList{QStringLiteral("Report\t7"), QStringLiteral("foot"), QStringLiteral("body")}));
    QVERIFY(text.indexOf(QLatin1String("<style:header>")) > 0);
    QVERIFY(text.indexOf(QLatin1String("<style:footer>")) > text.indexOf(QLatin1String("<style:header>")));
}

void OfficeFlowTest::dropsPageHeadersInContinuousText()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("body"), {72, 72, 300, 84}))};
    page.header = {fixture::paragraph(QStringLiteral("Report"), {72, 30, 120, 42})};
    QCOMPARE(
        fixture::paragraphs(flow(fixture::document({page}), flowForms::continuous)),
        QStringList{QStringLiteral("body")});
}

void OfficeFlowTest::writesTablesWithSpans()
{
    model::Table table = fixture::table(2, {QStringLiteral("head"), {}, QStringLiteral("a"), QStringLiteral("b")});
    table.cells[0].columnSpan = 2;
    table.cells[0].background = 0xeeeeee;
    table.cells.erase(table.cells.begin() + 1);
    model::Page page = fixture::page();
    page.sections[0].blocks = {{table, 0}};
    const QString text = flow(fixture::document({page}));
    QVERIFY(text.contains(QLatin1String("table:number-columns-spanned=\"2\"")));
    QCOMPARE(text.count(QLatin1String("<table:covered-table-cell/>")), 1);
    QCOMPARE(text.count(QLatin1String("<table:table-cell ")), 3);
    QVERIFY(text.contains(QLatin1String("fo:border-left=\"0.50pt solid #000000\"")));
    QVERIFY(text.contains(QLatin1String("fo:background-color=\"#eeeeee\"")));
}

void OfficeFlowTest::keepsLinksThatAreSafe()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("web"), {72, 72, 300, 84});
    paragraph.lines[0].words[0].link = QStringLiteral("https://example.org/a?b=1&c=2");
    for (const char *link : {"#page=3", "file:///etc/passwd", "macro:run"}) {
        fixture::addWord(paragraph, QStringLiteral("x"), fixture::style(), QLatin1String(link));
    }
    const QString text = flow(oneBlock(paragraph));
    QVERIFY(text.contains(QLatin1String("xlink:href=\"https://example.org/a?b=1&amp;c=2\"")));
    QVERIFY(text.contains(QLatin1String("xlink:href=\"#page3\"")));
    QVERIFY(!text.contains(QLatin1String("file:")));
    QVERIFY(!text.contains(QLatin1String("macro:")));
}

void OfficeFlowTest::placesPictures()
{
    model::Page page = fixture::page();
    model::Figure behind = fixture::figure({72, 400, 540, 500}, model::FigureKind::Image);
    behind.behindText = true;
    page.sections[0].blocks = {
        {fixture::figure({72, 100, 172, 200}, model::FigureKind::Image), 0},
        fixture::block(fixture::paragraph(QStringLiteral("over"), {100, 410, 160, 422})),
        {behind, 0}};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<office:binary-data>cGljdHVyZQ==")), 2);
    QCOMPARE(text.count(QLatin1String("text:anchor-type=\"as-char\"")), 1);
    QVERIFY(text.contains(QLatin1String("style:run-through=\"background\"")));
    QVERIFY(text.contains(QLatin1String("svg:y=\"400.00pt\"")));
}

void OfficeFlowTest::putsPicturesSideBySide()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {
        {fixture::figure({72, 100, 272, 200}, model::FigureKind::Image), 0},
        {fixture::figure({372, 110, 572, 210}, model::FigureKind::Image), 0}};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(fixture::paragraphs(text).filter(QStringLiteral("\t")).size(), 1);
    // Scaled by the width of the text, less half a point, divided by 500 points.
    QCOMPARE(text.count(QLatin1String("svg:width=\"187.00pt\" svg:height=\"93.50pt\"")), 2);
    QVERIFY(text.contains(QLatin1String("<style:tab-stop style:position=\"280.50pt\"")));
}

void OfficeFlowTest::putsSidewaysTextIntoFrames()
{
    model::Paragraph sideways = fixture::paragraph(QStringLiteral("reprinted"), {20, 100, 30, 200});
    sideways.rotation = 270;
    sideways.lines[0].rotation = 270;
    sideways.lines[0].words[0].rotation = 270;
    model::Page page = fixture::page();
    page.sections[0].blocks = {
        fixture::block(sideways), fixture::block(fixture::paragraph(QStringLiteral("text"), {72, 72, 160, 84})),
        fixture::block(fixture::paragraph(QStringLiteral("more"), {72, 90, 160, 102}))};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<draw:text-box")), 1);
    QCOMPARE(text.count(QLatin1String("reprinted")), 1);
    QVERIFY(text.contains(QLatin1String("loext:writing-mode=\"bt-lr\"")));
    QCOMPARE(flow(fixture::document({page}), flowForms::inOneColumn).count(QLatin1String("<draw:text-box")), 0);
}

void OfficeFlowTest::turnsTextInCells()
{
    model::Table table = fixture::table(2, {QStringLiteral("up"), QStringLiteral("across")});
    table.cells[0].paragraphs[0].rotation = 270;
    model::Page page = fixture::page();
    page.sections[0].blocks = {{table, 0}};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("loext:writing-mode=\"bt-lr\"")), 1);
    QVERIFY(fixture::paragraphs(text).contains(QStringLiteral("across")));
}

// The line above the first paragraph lies above the page's content.
void OfficeFlowTest::lineAboveThePageIsInItsMargin()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("below the line"), {72, 72, 300, 84});
    paragraph.borderAbove.line = {1, black};
    paragraph.borderAbove.gap = 20;
    QVERIFY(flow(oneBlock(paragraph)).contains(QLatin1String("fo:margin-top=\"51.40pt\"")));
}

void OfficeFlowTest::writesScansAsPages()
{
    model::Page page;
    page.scanned = true;
    page.sections = {{{{0, 0, 612, 792}}, {{fixture::figure({0, 0, 612, 792}, model::FigureKind::Page), 0}}}};
    const QString text = flow(fixture::document({page}));
    QCOMPARE(text.count(QLatin1String("<draw:image>")), 1);
    QVERIFY(text.contains(QLatin1String("svg:width=\"612.00pt\" svg:height=\"792.00pt\"")));
    QVERIFY(text.contains(QLatin1String("fo:margin-left=\"0.00pt\"")));
}

void OfficeFlowTest::dropsCharactersThatXmlCannotHold()
{
    QString odd = QStringLiteral("a");
    odd += QChar(0x0b);
    odd += QChar(0xd800);
    odd += QStringLiteral("b  c");
    model::Paragraph paragraph = fixture::paragraph({}, {72, 72, 300, 84});
    fixture::addWord(paragraph, odd);
    const QString text = flow(oneBlock(paragraph));
    QCOMPARE(fixture::paragraphs(text), QStringList{QStringLiteral("ab  c")});
}

// The helpers of these tests themselves: a check on an empty text would pass.
void OfficeFlowTest::malformedOutputIsNoticed()
{
    const auto broken = [] {
        return fixture::odf(OdfKind::Text, [](OdfFile &file) { file.body().writeDTD(QStringLiteral("<")); });
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, broken());
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, fixture::paragraphs(QStringLiteral("<p>open")));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, fixture::paragraphs(QString()));
}

void OfficeFlowTest::writesBookmarksAndComments()
{
    model::Document document = oneBlock(fixture::paragraph(QStringLiteral("text"), {72, 72, 300, 84}));
    document.facts.outline = {{QStringLiteral("First & last"), 0, 1, 0}};
    document.pages[0].comments = {{{72, 72, 90, 84}, QStringLiteral("A. Reader"), QStringLiteral("one\ntwo"), {}}};
    document.pages[0].comments[0].date = QDateTime({2026, 11, 22}, {5, 15}, QTimeZone::utc());
    const QString text = flow(document);
    QVERIFY(text.contains(QLatin1String("<text:bookmark text:name=\"page1\"/>")));
    QVERIFY(text.contains(QLatin1String("<text:bookmark text:name=\"First_last\"/>")));
    QVERIFY(text.contains(QLatin1String("<office:annotation><dc:creator>A. Reader</dc:creator>"
                                        "<dc:date>2026-11-22T05:15:00</dc:date><text:p>one</text:p>"
                                        "<text:p>two</text:p></office:annotation>text")));
}

void OfficeFlowTest::statesMetadataAndLanguage()
{
    model::Document document = oneBlock(fixture::paragraph(QStringLiteral("text"), {72, 72, 300, 84}));
    const auto fileOf = [&document](OdfKind kind) {
        return fixture::odf(kind, [&document](OdfFile &file) { file.describe(document); });
    };
    QVERIFY(!fileOf(OdfKind::Text).contains(QLatin1String("office:meta>")));
    QVERIFY(!fileOf(OdfKind::Text).contains(QLatin1String("fo:language")));
    document.facts.title = QStringLiteral("Bread & butter");
    document.facts.author = QStringLiteral("A. Writer");
    document.facts.language = QStringLiteral("en-GB");
    for (const OdfKind kind : {OdfKind::Text, OdfKind::Presentation, OdfKind::Spreadsheet}) {
        const QString file = fileOf(kind);
        QVERIFY(file.contains(QLatin1String("<office:meta><dc:title>Bread &amp; butter</dc:title>"
                                            "<meta:initial-creator>A. Writer</meta:initial-creator>"
                                            "<dc:language>en-GB</dc:language></office:meta>")));
        QVERIFY(file.contains(QLatin1String("fo:language=\"en\" fo:country=\"GB\"")));
    }
    document.facts.language = QStringLiteral("zh-Hant-tw");
    QVERIFY(fileOf(OdfKind::Text).contains(QLatin1String("style:language-asian=\"zh\" style:country-asian=\"TW\"")));
    document.facts.language = QStringLiteral("ar");
    QVERIFY(
        fileOf(OdfKind::Text).contains(QLatin1String("style:language-complex=\"ar\" style:country-complex=\"none\"")));
}

// The default style of a language has no name, and such styles name no parent: they have nothing in common with it.
void OfficeFlowTest::stylesWithoutAParentStayWhole()
{
    model::Document document;
    document.facts.language = QStringLiteral("en-GB");
    for (const OdfKind kind : {OdfKind::Text, OdfKind::Presentation, OdfKind::Spreadsheet}) {
        const QString file = fixture::odf(kind, [&document](OdfFile &made) {
            made.describe(document);
            made.styles().text(fixture::style(10, true));
            made.styles().text(fixture::style(12, true));
        });
        QCOMPARE(file.count(QLatin1String("fo:font-weight=\"bold\"")), 2);
    }
}

// LibreOffice does not balance columns of almost full pages without these; an empty page follows them then.
void OfficeFlowTest::balancesColumns()
{
    const QString text = flow(oneBlock(fixture::paragraph(QStringLiteral("text"), {72, 72, 300, 84})));
    QVERIFY(text.contains(QLatin1String("fo:orphans=\"2\" fo:widows=\"2\"")));
}

QTEST_APPLESS_MAIN(OfficeFlowTest)
#include "office_flow_test.moc"
