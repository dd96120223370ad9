// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "document/text.h"
#include "slides/slides_writer.h"
#include "writers/slides/slide_boxes.h"
#include "writers/slides/slide_lists.h"
#include "writers/slides/slide_title.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// Which text of a page shares a text box on its slide, which is the title, and which are list items.
class OfficeSlideBoxesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titlesAreTheLargestTextAtTheTop_data();
    void titlesAreTheLargestTextAtTheTop();
    void outlineEntriesTellTitles();
    void partsOfATitleAreOneParagraph();
    void titlesArePlaceholders();
    void closeParagraphsShareABox();
    void boxesKeepLineEnds();
    void paragraphsStayInPlace();
    void itemsHaveMarksOfTheirLevel();
    void numbersAreCounted();
    void otherMarksRemainText();
};

namespace {

model::Paragraph textAt(const QString &text, double left, double top, double size = 10)
{
    const double width = 5 * static_cast<double>(text.size());
    return fixture::paragraph(text, {left, top, left + width, top + size}, fixture::style(size));
}

model::Page pageOf(const std::vector<model::Paragraph> &paragraphs)
{
    model::Page page = fixture::page();
    for (const model::Paragraph &paragraph : paragraphs) {
        page.sections[0].blocks.push_back(fixture::block(paragraph));
    }
    return page;
}

model::Paragraph itemAt(const QString &text, double left, double top, int level)
{
    model::Paragraph item = fixture::listItem(text, {left, top, left + 5 * static_cast<double>(text.size()), top + 10});
    item.listItem->level = level;
    return item;
}

QString titleOf(const model::Page &page, const model::FileFacts &facts = {})
{
    QStringList parts;
    for (const model::Paragraph *part : slideTitle(page, facts)) {
        parts += model::plainText(*part);
    }
    return parts.join(u'|');
}

QStringList textsOf(const SlideBox &box)
{
    QStringList texts;
    for (const model::Paragraph &paragraph : box.paragraphs) {
        texts += model::plainText(paragraph);
    }
    return texts;
}

QString slides(const model::Page &page)
{
    fixture::Pictures pictures;
    return fixture::odf(
        OdfKind::Presentation, [&](OdfFile &file) { writeSlides(file, fixture::document({page}), pictures); });
}

// The values of an attribute in the order of the file.
QStringList valuesOf(const QString &text, const QString &attribute)
{
    QStringList values;
    const QString begin = u' ' + attribute + QStringLiteral("=\"");
    for (qsizetype at = text.indexOf(begin); at >= 0; at = text.indexOf(begin, at + 1)) {
        const qsizetype from = at + begin.size();
        values += text.mid(from, text.indexOf(u'"', from) - from);
    }
    return values;
}

} // namespace

void OfficeSlideBoxesTest::titlesAreTheLargestTextAtTheTop_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("top");
    QTest::addColumn<QString>("title");
    QTest::newRow("large") << 20.0 << 80.0 << QStringLiteral("Our plans");
    QTest::newRow("hardly larger") << 11.0 << 80.0 << QString();
    QTest::newRow("large in the middle") << 20.0 << 350.0 << QStringLiteral("Our plans");
    QTest::newRow("large at the bottom") << 20.0 << 600.0 << QString();
}

void OfficeSlideBoxesTest::titlesAreTheLargestTextAtTheTop()
{
    QFETCH(double, size);
    QFETCH(double, top);
    QFETCH(QString, title);
    const model::Page page = pageOf(
        {textAt(QStringLiteral("Our plans"), 72, top, size), textAt(QStringLiteral("what most of it says"), 72, 300)});
    QCOMPARE(titleOf(page), title);
}

void OfficeSlideBoxesTest::outlineEntriesTellTitles()
{
    const model::Page page = pageOf(
        {textAt(QStringLiteral("A kind of remark"), 72, 80), textAt(QStringLiteral("At the bottom"), 72, 600, 20)});
    model::FileFacts facts;
    QCOMPARE(titleOf(page, facts), QString());
    facts.outline = {{QStringLiteral("At  the Bottom"), 0, 1, 0}};
    QCOMPARE(titleOf(page, facts), QStringLiteral("At the bottom"));
    facts.outline = {{QStringLiteral("At the bott"), 0, 1, 0}}; // cut off by the program that wrote it
    QCOMPARE(titleOf(page, facts), QStringLiteral("At the bottom"));
    facts.outline = {{QStringLiteral("A kind of remark"), 0, 1, 0}}; // the first text, though not the largest
    QCOMPARE(titleOf(page, facts), QStringLiteral("A kind of remark"));
    facts.outline = {{QStringLiteral("At the bottom"), 0, 2, 0}};
    QCOMPARE(titleOf(page, facts), QString());
}

void OfficeSlideBoxesTest::partsOfATitleAreOneParagraph()
{
    const model::Page page = pageOf(
        {textAt(QStringLiteral("A title of high-"), 72, 80, 20), textAt(QStringLiteral("level parts"), 72, 104, 20),
         textAt(QStringLiteral("and some text"), 72, 160)});
    const std::vector<SlideBox> boxes = slideBoxes(page, {});
    QCOMPARE(boxes.size(), std::size_t(2));
    QCOMPARE(boxes[0].kind, BoxKind::Title);
    QCOMPARE(textsOf(boxes[0]), QStringList{QStringLiteral("A title of high-level parts")});
    QCOMPARE(boxes[0].paragraphs[0].alignment, model::Alignment::Left);
    QCOMPARE(boxes[0].paragraphs[0].lineDistance, 24.0);
}

void OfficeSlideBoxesTest::titlesArePlaceholders()
{
    const model::Page page =
        pageOf({textAt(QStringLiteral("Our plans"), 283.5, 80, 20), itemAt(QStringLiteral("• first"), 72, 160, 0)});
    const QString text = slides(page);
    // Those of the master page come first, then those of the slide.
    QCOMPARE(
        valuesOf(text, QStringLiteral("presentation:class")),
        (QStringList{
            QStringLiteral("title"), QStringLiteral("outline"), QStringLiteral("title"), QStringLiteral("outline")}));
    QCOMPARE(
        valuesOf(text, QStringLiteral("presentation:presentation-page-layout-name")),
        QStringList{QStringLiteral("TitleAndOutline")});
    QVERIFY(text.contains(QLatin1String("fo:text-align=\"center\""))); // its middle is that of the page
    const QString plain = slides(pageOf({textAt(QStringLiteral("small"), 72, 80)}));
    QCOMPARE(valuesOf(plain, QStringLiteral("presentation:class")).size(), 2);
    QVERIFY(!plain.contains(QLatin1String("presentation-page-layout-name")));
}

void OfficeSlideBoxesTest::closeParagraphsShareABox()
{
    model::Page page = pageOf(
        {textAt(QStringLiteral("the first of them"), 72, 80), textAt(QStringLiteral("the second one"), 80, 94),
         textAt(QStringLiteral("far below them"), 72, 140), textAt(QStringLiteral("beside it"), 300, 154)});
    page.footer = {textAt(QStringLiteral("close to it"), 300, 168)};
    const std::vector<SlideBox> boxes = slideBoxes(page, {});
    QCOMPARE(boxes.size(), std::size_t(4));
    QCOMPARE(textsOf(boxes[0]), (QStringList{QStringLiteral("the first of them"), QStringLiteral("the second one")}));
    QCOMPARE(textsOf(boxes[3]), QStringList{QStringLiteral("close to it")});
}

void OfficeSlideBoxesTest::boxesKeepLineEnds()
{
    // In a box as wide as the second paragraph, the words of the first would move up.
    model::Paragraph narrow = textAt(QStringLiteral("two lines of"), 72, 80);
    narrow.lines.push_back(textAt(QStringLiteral("text here"), 72, 92).lines[0]);
    narrow.box.bottom = 102;
    narrow.lineDistance = 12;
    const model::Paragraph wide = textAt(QStringLiteral("a much longer line than those above it"), 72, 106);
    QCOMPARE(slideBoxes(pageOf({narrow, wide}), {}).size(), std::size_t(2));
    const model::Paragraph similar = textAt(QStringLiteral("not as long"), 72, 106);
    QCOMPARE(slideBoxes(pageOf({narrow, similar}), {}).size(), std::size_t(1));
}

void OfficeSlideBoxesTest::paragraphsStayInPlace()
{
    // 12 points of leading each; the baselines are 20 points apart.
    const QString text = slides(pageOf(
        {textAt(QStringLiteral("the first of them"), 72, 80), textAt(QStringLiteral("the second one"), 80, 100)}));
    QCOMPARE(text.count(QLatin1String("<draw:text-box>")), 1);
    QVERIFY(text.contains(QLatin1String("fo:margin-top=\"8.00pt\"")));
    QVERIFY(text.contains(QLatin1String("fo:margin-left=\"8.00pt\"")));
}

void OfficeSlideBoxesTest::itemsHaveMarksOfTheirLevel()
{
    const QString text = slides(pageOf(
        {itemAt(QStringLiteral("• first"), 72, 80, 0), itemAt(QStringLiteral("– inner"), 84, 94, 1),
         textAt(QStringLiteral("plain text"), 72, 108)}));
    QCOMPARE(text.count(QLatin1String("<draw:text-box>")), 1);
    QCOMPARE(
        fixture::paragraphs(text),
        (QStringList{QStringLiteral("first"), QStringLiteral("inner"), QStringLiteral("plain text")}));
    QCOMPARE(
        valuesOf(text, QStringLiteral("text:bullet-char")), (QStringList{QStringLiteral("•"), QStringLiteral("–")}));
    QCOMPARE(valuesOf(text, QStringLiteral("text:level")), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(text.count(QLatin1String("<text:list-item>")), 3); // one around the first, two around the second
    QVERIFY(text.contains(QLatin1String("fo:text-indent=\"-10.00pt\"")));
}

void OfficeSlideBoxesTest::numbersAreCounted()
{
    const auto startsOf = [](const std::vector<model::Paragraph> &paragraphs) {
        QStringList starts;
        for (const std::optional<SlideList> &list : slideLists(paragraphs)) {
            const Attributes attributes =
                list ? list->style.children[0].attributes : Attributes{{QLatin1String(), QStringLiteral("none")}};
            starts += attributes.back().second;
        }
        return starts.join(u' ');
    };
    const auto item = [](const char *text, int level) { return itemAt(QString::fromUtf8(text), 72, 80, level); };
    QCOMPARE(startsOf({item("3. c", 0), item("4. d", 0), item("a) x", 1), item("5. e", 0)}), QStringLiteral("3 3 1 3"));
    QCOMPARE(startsOf({item("1. a", 0), item("3. c", 0)}), QStringLiteral("1 3"));
    QCOMPARE(startsOf({item("h. a", 0), item("i. b", 0)}), QStringLiteral("8 8"));
    const model::Paragraph plain = textAt(QStringLiteral("between"), 72, 94);
    QCOMPARE(startsOf({item("1. a", 0), plain, item("2. b", 0)}), QStringLiteral("1 none 2"));
    QVERIFY(!fixture::paragraphs(slides(pageOf({item("1. a", 0)}))).contains(QStringLiteral("1. a")));
}

void OfficeSlideBoxesTest::otherMarksRemainText()
{
    for (const char *mark : {"1.2", "[3]", "0."}) {
        const QString text = QString::fromUtf8(mark) + QStringLiteral(" text");
        const model::Paragraph item = itemAt(text, 72, 80, 0);
        QVERIFY2(!slideLists({item})[0], mark);
        const QStringList written = fixture::paragraphs(slides(pageOf({item})));
        QCOMPARE(written.size(), 1);
        QVERIFY(written[0].startsWith(QString::fromUtf8(mark)));
    }
    model::Paragraph far = itemAt(QStringLiteral("• text"), 72, 80, 0);
    far.lines[0].words[1].box.left += 200;
    QVERIFY(!slideLists({far})[0]);
}

QTEST_APPLESS_MAIN(OfficeSlideBoxesTest)
#include "office_slide_boxes_test.moc"
