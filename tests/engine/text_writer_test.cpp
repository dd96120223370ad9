// SPDX-License-Identifier: GPL-3.0-or-later
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
