// SPDX-License-Identifier: GPL-3.0-or-later
#include "document_maker.h"
#include "page_maker.h"

#include "text/text_writer.h"
#include "xml/xml_writer.h"

#include <QBuffer>
#include <QTest>

using namespace quorra;
using namespace quorra::model;

class TextWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsLinesAndCompletesCutWords()
    {
        PageMaker page;
        page.lines(
            60, 100, {QStringLiteral("The con-"), QStringLiteral("verter works"), QStringLiteral("as it should.")});
        QCOMPARE(pageAsText(page.build().pages.front()), QStringLiteral("The converter\nworks\nas it should.\n"));
    }

    void setsTablesInColumns()
    {
        PageMaker page;
        page.grid({50, 150, 250}, {100, 120, 140});
        page.text(52, 114, QStringLiteral("long entry"));
        page.text(152, 114, QStringLiteral("two"));
        page.text(52, 134, QStringLiteral("x"));
        page.text(228, 134, QStringLiteral("1234"));
        QCOMPARE(
            pageAsText(page.build().pages.front()), QStringLiteral("long entry  two\n"
                                                                   "x           1234\n"));
    }

    void keepsColumnsOfListings()
    {
        PageMaker page;
        Style style;
        style.family = QStringLiteral("Courier");
        style.fixedPitch = true;
        page.styled(60, 100, QStringLiteral("begin"), style);
        page.styled(70, 112, QStringLiteral("first"), style);
        page.styled(70, 124, QStringLiteral("second"), style);
        page.styled(150, 124, QStringLiteral("remark"), style);
        QCOMPARE(
            pageAsText(page.build().pages.front()), QStringLiteral("begin\n"
                                                                   "  first\n"
                                                                   "  second          remark\n"));
    }

    void setsEntriesOfListsBelowOneAnother()
    {
        PageMaker page;
        page.lines(60, 60, prose(3));
        for (int i = 0; i < 2; ++i) {
            page.text(70, 112 + 12 * i, QStringLiteral("•"));
            page.text(90, 112 + 12 * i, QStringLiteral("an entry"));
        }
        QVERIFY(pageAsText(page.build().pages.front()).endsWith(QStringLiteral("and\n\n• an entry\n• an entry\n")));
    }

    void setsEntriesOfContentsBelowOneAnother()
    {
        DocumentMaker maker;
        for (const char *text : {"Introduction", "Boats", "Ropes"}) {
            Paragraph entry = maker.paragraph(QLatin1String(text) + QStringLiteral(" 7"));
            entry.lines[0].words[0].separator = Separator::Tab;
            entry.tabStops = {{471, Alignment::Right, true}};
            entry.spaceBefore = QLatin1String(text) == QLatin1String("Ropes") ? 12 : 0;
            entry.lines[0].baseline = entry.box.bottom;
            maker.add({entry, 0});
        }
        maker.page().sections[0].blocks[2].paragraph()->lines[0].baseline += 12;
        QCOMPARE(pageAsText(maker.page()), QStringLiteral("Introduction\t7\nBoats\t7\n\nRopes\t7\n"));
    }

    void linesAtEvenDistancesBelongTogether()
    {
        DocumentMaker maker;
        const std::vector<double> baselines{100, 124, 148, 200, 250};
        for (const double baseline : baselines) {
            Paragraph line = maker.paragraph(QString::number(baseline));
            line.lines[0].baseline = baseline;
            maker.add({line, 0});
        }
        QCOMPARE(pageAsText(maker.page()), QStringLiteral("100\n124\n148\n\n200\n\n250\n"));
    }

    void evenLinesDifferByLittle_data()
    {
        QTest::addColumn<double>("difference");
        QTest::addColumn<bool>("together");
        QTest::newRow("less") << 0.95 << true;
        QTest::newRow("more") << 1.05 << false;
    }

    void evenLinesDifferByLittle()
    {
        QFETCH(double, difference);
        QFETCH(bool, together);
        DocumentMaker maker;
        for (const double baseline : {100.0, 124.0, 148.0 + difference}) {
            Paragraph line = maker.paragraph(QStringLiteral("x"));
            line.lines[0].baseline = baseline;
            maker.add({line, 0});
        }
        QCOMPARE(pageAsText(maker.page()) == QStringLiteral("x\nx\nx\n"), together);
    }

    void keepsIndentsOfTheFirstColumn()
    {
        DocumentMaker maker;
        Table table;
        table.columnEdges = {60, 160, 260};
        table.rowEdges = {100, 120, 140, 160};
        const std::vector<double> indents{0, 10, 300}; // points; the font has 10
        for (int row = 0; row < 3; ++row) {
            Cell cell;
            cell.row = row;
            cell.paragraphs = {maker.paragraph(QStringLiteral("stub"))};
            cell.paragraphs[0].box.left += indents[static_cast<std::size_t>(row)];
            table.cells.push_back(cell);
            cell.column = 1;
            cell.paragraphs = {maker.paragraph(QString::number(row))};
            table.cells.push_back(cell);
        }
        QCOMPARE(
            tableAsText(table), QStringLiteral("stub              0\n"
                                               "    stub          1\n"
                                               "            stub  2\n"));
    }

    void shortensRowsOfDots()
    {
        DocumentMaker maker;
        maker.add({maker.paragraph(QStringLiteral("Name ............ Town . . . . . . . end ..... five")), 0});
        QCOMPARE(pageAsText(maker.page()), QStringLiteral("Name ... Town ... end ..... five\n"));
    }

    void joinsWordsOverColumns()
    {
        DocumentMaker maker;
        Paragraph left = maker.paragraph(QStringLiteral("is cut in con-"));
        left.lines[0].words.back().separator = Separator::Hyphen;
        Paragraph right = maker.paragraph(QStringLiteral("versation, and goes on"));
        right.continuesPrevious = true;
        maker.add({left, 0});
        maker.add({right, 1});
        joinContinuations(maker.document(), false);
        QCOMPARE(pageAsText(maker.page()), QStringLiteral("is cut in conversation,\nand goes on\n"));
    }

    void putsHeaderAndFooterAtTheirEnds()
    {
        std::vector<RawPage> pages;
        for (int number = 1; number <= 3; ++number) {
            PageMaker page(number);
            page.text(300, 780, QString::number(number));
            page.text(60, 40, QStringLiteral("A report"));
            page.lines(60, 100, prose(5, QString(number, QLatin1Char('m'))));
            pages.push_back(page.raw());
        }
        const QString text = pageAsText(buildDocument(pages).pages.at(1));
        QVERIFY(text.startsWith(QStringLiteral("A report\n\nmm runs")));
        QVERIFY(text.endsWith(QStringLiteral("\n\n2\n")));
    }

    void emptyPageGivesNothing() { QCOMPARE(pageAsText(Page()), QString()); }

    void xmlKeepsPlacesAndWholeWords()
    {
        PageMaker page;
        page.lines(60, 100, {QStringLiteral("The con-"), QStringLiteral("verter works & is done.")});
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        writeXml(buffer, page.build());
        const QString xml = QString::fromUtf8(buffer.data());
        QVERIFY(xml.contains(QStringLiteral(
            "left=\"60\" top=\"92\" right=\"75\" bottom=\"102\" font=\"Times New Roman\" size=\"10\">The</word>")));
        QVERIFY(xml.contains(QStringLiteral(">converter</word>")));
        QVERIFY(xml.contains(QStringLiteral("part=\"rest\"")));
        QVERIFY(xml.contains(QStringLiteral("&amp;")));
    }
};

QTEST_APPLESS_MAIN(TextWriterTest)
#include "text_writer_test.moc"
