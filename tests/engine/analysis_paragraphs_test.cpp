// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/text_lines/list_mark.h"
#include "analysis/text_lines/text_lines.h"
#include "document/direction.h"
#include "document/text.h"
#include "pdf/font_name.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

const Paragraph *paragraphWith(const Document &document, const QString &text)
{
    for (const Section &section : document.pages.front().sections) {
        for (const Block &block : section.blocks) {
            if (block.paragraph() && plainText(*block.paragraph()).contains(text)) {
                return block.paragraph();
            }
        }
    }
    return nullptr;
}

// The level of the heading with that text; -1 when its paragraph is no heading.
int headingLevel(const Document &document, const QString &text)
{
    const Paragraph *paragraph = paragraphWith(document, text);
    return paragraph && paragraph->role == Role::Heading ? paragraph->headingLevel : -1;
}

} // namespace

class AnalysisParagraphsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsColumnsOneAfterTheOther()
    {
        PageMaker page;
        page.bold(200, 80, QStringLiteral("A title above both columns"), 16);
        page.lines(40, 120, prose(12, QStringLiteral("left")));
        page.lines(320, 120, prose(12, QStringLiteral("right")));
        const Document document = page.build();
        const QString all = paragraphTexts(document).join(QLatin1Char('\n'));
        QVERIFY(all.startsWith(QStringLiteral("A title")));
        QVERIFY(all.lastIndexOf(QStringLiteral("left")) < all.indexOf(QStringLiteral("right")));
        QCOMPARE(document.pages.front().sections.back().columns.size(), std::size_t(2));
    }

    // The longest line of an address ends nowhere in particular.
    void oneLongLineMakesNoMargin_data()
    {
        QTest::addColumn<bool>("otherLines");
        QTest::newRow("an address alone") << false;
        QTest::newRow("above lines that end with it") << true;
    }

    void oneLongLineMakesNoMargin()
    {
        QFETCH(bool, otherLines);
        PageMaker page;
        page.text(300, 100, QStringLiteral("35 Old Harbour Lane"));
        page.text(300, 112, QStringLiteral("69100 Oakham"));
        if (otherLines) {
            page.text(300, 160, QStringLiteral("35 Old Harbour Lane"));
            page.text(300, 172, QStringLiteral("69100 Oakham"));
        }
        const Document document = page.build();
        const Paragraph *paragraph = paragraphWith(document, QStringLiteral("Old Harbour"));
        QVERIFY(paragraph);
        QCOMPARE(paragraph->lines.size(), std::size_t(2));
        QCOMPARE(paragraph->alignment, otherLines ? Alignment::Justify : Alignment::Left);
    }

    // A caption whose first line is all bold: what looks like a heading goes on in the middle of a word.
    void aWordCutAtALinesEndKeepsTheParagraphTogether()
    {
        PageMaker page;
        page.lines(50, 300, prose(4));
        page.bold(50, 400, QStringLiteral("Figure 11. Share of the code that is run by inter-"));
        const double end = page.bold(50, 412, QStringLiteral("preter and by"));
        page.text(end, 412, QStringLiteral("compiled code in all of the programs here."));
        const QStringList texts = paragraphTexts(page.build());
        QVERIFY2(
            texts.contains(
                QStringLiteral("Figure 11. Share of the code that is run by interpreter and by compiled code "
                               "in all of the programs here.")),
            qPrintable(texts.join(QLatin1Char('\n'))));
    }

    void readsThreeColumns()
    {
        PageMaker page;
        const QStringList names{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
        for (int column = 0; column < 3; ++column) {
            for (int line = 0; line < 15; ++line) {
                page.text(30 + 190 * column, 100 + 11 * line, names.at(column) + QStringLiteral(" has words here too"));
            }
        }
        const Document document = page.build();
        QCOMPARE(document.pages.front().sections.size(), std::size_t(1));
        QCOMPARE(document.pages.front().sections.front().columns.size(), std::size_t(3));
        const QString all = paragraphTexts(document).join(QLatin1Char(' '));
        QVERIFY(all.lastIndexOf(names.at(0)) < all.indexOf(names.at(1)));
        QVERIFY(all.lastIndexOf(names.at(1)) < all.indexOf(names.at(2)));
    }

    void joinsLinesAndUndoesHyphens()
    {
        PageMaker page;
        page.lines(
            60, 100,
            {QStringLiteral("The con-"), QStringLiteral("verter reads well-"), QStringLiteral("known Anglo-"),
             QStringLiteral("Saxon texts.")});
        const Document document = page.build();
        QCOMPARE(
            paragraphTexts(document), QStringList{QStringLiteral("The converter reads wellknown Anglo-Saxon texts.")});
    }

    void cutsParagraphsAtIndentsGapsAndShortLines()
    {
        PageMaker page;
        double y = page.lines(60, 100, prose(3));
        page.text(75, y, QStringLiteral("Indented lines begin a paragraph as they do in any book"));
        y = page.lines(60, y + 12, {QStringLiteral("and it goes on to here.")});
        y = page.lines(60, y, {QStringLiteral("After a short line comes another one that is long")});
        page.lines(60, y + 20, {QStringLiteral("and a gap divides as well")});
        const QStringList texts = paragraphTexts(page.build());
        QCOMPARE(texts.size(), 4);
        QVERIFY(texts.at(1).startsWith(QStringLiteral("Indented")));
        QVERIFY(texts.at(1).endsWith(QStringLiteral("to here.")));
        QVERIFY(texts.at(3).startsWith(QStringLiteral("and a gap")));
    }

    void ranksHeadings()
    {
        PageMaker page;
        page.bold(60, 60, QStringLiteral("The largest"), 20);
        page.bold(60, 100, QStringLiteral("A smaller one"), 14);
        page.lines(60, 130, prose(6));
        page.bold(60, 230, QStringLiteral("Bold at body size"));
        page.lines(60, 250, prose(6, QStringLiteral("beta")));
        const Document document = page.build();
        // The largest is the title of the document, and the levels of the others begin below it.
        QCOMPARE(headingLevel(document, QStringLiteral("largest")), 1);
        QCOMPARE(headingLevel(document, QStringLiteral("smaller")), 1);
        QCOMPARE(headingLevel(document, QStringLiteral("Bold at")), 2);
        QCOMPARE(paragraphWith(document, QStringLiteral("alpha"))->role, Role::Body);
    }

    void findsLists()
    {
        PageMaker page;
        page.lines(60, 100, {QStringLiteral("What there is to say here comes as a list of things:")});
        page.text(70, 116, QStringLiteral("•"));
        page.text(84, 116, QStringLiteral("the first thing"));
        page.text(84, 132, QStringLiteral("◦"));
        page.text(98, 132, QStringLiteral("inside of it"));
        page.text(70, 148, QStringLiteral("•"));
        page.text(84, 148, QStringLiteral("the second thing"));
        page.text(70, 164, QStringLiteral("2."));
        page.text(84, 164, QStringLiteral("a counted thing"));
        const Document document = page.build();
        const Paragraph *first = paragraphWith(document, QStringLiteral("first thing"));
        const Paragraph *inner = paragraphWith(document, QStringLiteral("inside"));
        const Paragraph *counted = paragraphWith(document, QStringLiteral("counted"));
        QVERIFY(first != nullptr);
        QVERIFY(inner != nullptr);
        QVERIFY(counted != nullptr);
        QCOMPARE(first->role, Role::ListItem);
        QVERIFY(first->listItem && inner->listItem && counted->listItem);
        QCOMPARE(first->listItem->mark, QStringLiteral("•"));
        QCOMPARE(plainText(*first), QStringLiteral("the first thing"));
        QCOMPARE(first->listItem->level, 0);
        QCOMPARE(inner->listItem->level, 1);
        QVERIFY(counted->listItem->ordered);
        QCOMPARE(counted->listItem->mark, QStringLiteral("2."));
    }

    void findsHeadersAndFooters()
    {
        std::vector<RawPage> pages;
        for (int number = 1; number <= 4; ++number) {
            PageMaker page(number);
            page.text(60, 40, QStringLiteral("A report of the year 2020"));
            page.lines(60, 100, prose(20, QStringLiteral("page%1").arg(number)));
            page.text(300, 770, QString::number(number));
            pages.push_back(page.raw());
        }
        const Document document = buildDocument(pages);
        for (const Page &page : document.pages) {
            QCOMPARE(page.header.size(), std::size_t(1));
            QCOMPARE(page.footer.size(), std::size_t(1));
        }
        QVERIFY(!paragraphWith(document, QStringLiteral("report")));
    }

    void joinsTextOverPages()
    {
        PageMaker first(1);
        first.lines(60, 100, prose(10) + QStringList{QStringLiteral("the sentence goes on along this whole line of")});
        PageMaker second(2);
        second.lines(
            60, 100, QStringList{QStringLiteral("the next page and is done there at last, as it must be.")} + prose(5));
        Document document = buildDocument({first.raw(), second.raw()});
        QVERIFY(document.pages.back().sections.front().blocks.front().paragraph()->continuesPrevious);
        Document perPage = buildDocument({first.raw(), second.raw()});
        joinContinuations(perPage, false);
        const Section &kept = perPage.pages.back().sections.front();
        QVERIFY(!kept.blocks.empty() && kept.blocks.front().paragraph());
        QVERIFY(plainText(*kept.blocks.front().paragraph()).startsWith(QStringLiteral("the next page")));
        joinContinuations(document, true);
        QVERIFY(paragraphTexts(document).constLast().contains(QStringLiteral("whole line of the next page")));
    }

    void putsRightToLeftIntoReadingOrder()
    {
        PageMaker page; // "shalom 12 olam" as displayed, from left to right
        page.text(100, 100, QString::fromUtf8("עולם 12 שלום"));
        const Document document = page.build();
        QCOMPARE(paragraphTexts(document), QStringList{QString::fromUtf8("שלום 12 עולם")});
        QVERIFY(document.pages.front().sections.front().blocks.front().paragraph()->rightToLeft);
    }

    void putsWordsUpright_data()
    {
        QTest::addColumn<QString>("drawn");
        QTest::addColumn<QString>("read");
        QTest::newRow("latin") << QStringLiteral("abc") << QStringLiteral("abc");
        QTest::newRow("hebrew") << QString::fromUtf8("םולש") << QString::fromUtf8("שלום");
        QTest::newRow("number inside") << QString::fromUtf8("12.5ב") << QString::fromUtf8("ב12.5");
        QTest::newRow("ligature") << QString::fromUtf8("oﬃce") << QStringLiteral("office");
        QTest::newRow("arabic forms") << QString::fromUtf8("\ufee2\ufee0\ufed7") << QString::fromUtf8("قلم");
    }

    void putsWordsUpright()
    {
        QFETCH(QString, drawn);
        QFETCH(QString, read);
        QCOMPARE(plainLetters(logicalWord(drawn)), read);
    }

    void putsRotatedPagesUpright_data()
    {
        QTest::addColumn<int>("rotation");
        QTest::newRow("down") << 90;
        QTest::newRow("upside down") << 180;
        QTest::newRow("up") << 270;
    }

    void putsRotatedPagesUpright()
    {
        QFETCH(int, rotation);
        PageMaker upright;
        upright.lines(60, 100, prose(3));
        RawPage page;
        page.width = rotation == 180 ? 600 : 800;
        page.height = rotation == 180 ? 800 : 600;
        for (RawWord word : upright.raw().words) { // as a viewer shows the text rotated clockwise
            const Box b = word.box;
            if (rotation == 90) {
                word.box = {800 - b.bottom, b.left, 800 - b.top, b.right};
                word.baseline = 800 - word.baseline;
            } else if (rotation == 180) {
                word.box = {600 - b.right, 800 - b.bottom, 600 - b.left, 800 - b.top};
                word.baseline = 800 - word.baseline;
            } else {
                word.box = {b.top, 600 - b.right, b.bottom, 600 - b.left};
            }
            word.rotation = rotation;
            page.words.push_back(word);
        }
        const Document document = buildDocument({page});
        QCOMPARE(paragraphTexts(document), paragraphTexts(upright.build()));
        const Paragraph *paragraph = document.pages.front().sections.front().blocks.front().paragraph();
        QCOMPARE(paragraph->rotation, rotation);
        QCOMPARE(paragraph->lines.front().words.front().box, page.words.front().box);
        QCOMPARE(document.pages.front().width, page.width);
    }

    void scannedPageIsOnePicture()
    {
        PageMaker page;
        page.raw().pictures.push_back({{0, 0, 600, 800}});
        const Document document = page.build();
        QVERIFY(document.pages.front().scanned);
        const Figure *figure = document.pages.front().sections.front().blocks.front().figure();
        QVERIFY(figure);
        QCOMPARE(figure->kind, FigureKind::Page);
    }

    void readsFontNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("family");
        QTest::addColumn<bool>("bold");
        QTest::addColumn<bool>("italic");
        QTest::newRow("subset") << "ABCDEF+TimesNewRomanPS-BoldItalicMT"
                                << "Times New Roman" << true << true;
        QTest::newRow("plain") << "ArialMT"
                               << "Arial" << false << false;
        QTest::newRow("type 1") << "NimbusRomNo9L-Medi"
                                << "Times New Roman" << true << false;
        QTest::newRow("tex") << "CMBX10"
                             << "CMBX10" << true << false;
        QTest::newRow("oblique") << "DejaVuSans-Oblique"
                                 << "DejaVu Sans" << false << true;
        QTest::newRow("capitals inside a word") << "ABCDEF+TeXGyreHeros-Bold"
                                                << "TeX Gyre Heros" << true << false;
        QTest::newRow("number") << "ABCDEF+SourceSans3-Regular"
                                << "Source Sans 3" << false << false;
        QTest::newRow("two words") << "FreeSerifBold"
                                   << "Free Serif" << true << false;
        QTest::newRow("medium is not bold") << "Roboto-Medium"
                                            << "Roboto" << false << false;
        QTest::newRow("none") << ""
                              << "" << false << false;
    }

    void readsFontNames()
    {
        QFETCH(QString, name);
        const FontName parsed = parseFontName(name);
        QTEST(parsed.family, "family");
        QTEST(parsed.bold, "bold");
        QTEST(parsed.italic, "italic");
    }

    void recognisesListMarks()
    {
        for (const char *mark : {"•", "1.", "12)", "(a)", "iv.", "[3]"}) {
            QVERIFY2(isListMark(QString::fromUtf8(mark)), mark);
        }
        for (const char *word : {"1", "1.5", "word.", "2020.", ""}) {
            QVERIFY2(!isListMark(QString::fromUtf8(word)), word);
        }
    }

    void emptyPagesAreKept()
    {
        const Document document = buildDocument({RawPage(), RawPage()});
        QCOMPARE(document.pages.size(), std::size_t(2));
        QVERIFY(document.pages.front().sections.empty());
        QVERIFY(buildDocument({}).pages.empty());
    }
};

QTEST_APPLESS_MAIN(AnalysisParagraphsTest)
#include "analysis_paragraphs_test.moc"
