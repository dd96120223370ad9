// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_pages.h"

#include <QRegularExpression>
#include <QTest>

using namespace quorra;
using namespace quorra::model;

class HtmlLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesLooksAndLinks()
    {
        PageMaker page;
        double x = page.text(60, 100, QStringLiteral("This is plain text, then"));
        Style style = page.raw().words.front().style;
        style.bold = true;
        style.italic = true;
        style.colour = 0xff0000;
        x = page.styled(x, 100, QStringLiteral("red"), style);
        page.raw().words.back().link = QStringLiteral("#page=1");
        page.text(x, 100, QStringLiteral("and more plain text up to the end."));
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(QStringLiteral(
                "<a href=\"#page-1\"><span style=\"color:#ff0000\"><b><i>red</i></b></span></a> and more")),
            qPrintable(bodyOf(text)));
    }

    void raisesAndLowersSigns()
    {
        PageMaker page;
        page.lines(60, 60, prose(3));
        page.text(60, 100, QStringLiteral("the letter x"));
        page.raw().words.back().spaceAfter = false;
        page.text(115, 102, QStringLiteral("1"), 6);
        page.text(130, 100, QStringLiteral("and a note"));
        page.raw().words.back().spaceAfter = false;
        page.text(175, 96, QStringLiteral("2"), 6);
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(QStringLiteral("the letter x<sub>1</sub> and a note<sup>2</sup>")), qPrintable(bodyOf(text)));
    }

    void oneLinkForAllThatLeadsToOnePlace()
    {
        PageMaker page;
        Style style;
        double x = page.styled(60, 100, QStringLiteral("plain"), style);
        page.raw().words.back().link = QStringLiteral("https://example.org/");
        style.italic = true;
        x = page.styled(x, 100, QStringLiteral("slanted"), style);
        page.raw().words.back().link = QStringLiteral("https://example.org/");
        page.text(x, 100, QStringLiteral("behind it"));
        const QString text = html(page.build());
        QCOMPARE(text.count(QStringLiteral("<a ")), 1);
        QVERIFY2(text.contains(QStringLiteral("plain <i>slanted</i></a> ")), qPrintable(bodyOf(text)));
    }

    void keepsMarksOfCountedLists()
    {
        PageMaker page;
        page.lines(60, 60, prose(3));
        for (int i = 0; i < 3; ++i) {
            page.text(70, 112 + 12 * i, QString::number(i + 4) + QLatin1Char('.'));
            page.text(90, 112 + 12 * i, QStringLiteral("an entry"));
        }
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(QStringLiteral("<ol class=\"counted\"><li><span class=\"mark\">4.</span> an entry</li>")),
            qPrintable(bodyOf(text)));
    }

    void keepsColumnsOfListings()
    {
        PageMaker page;
        Style style;
        style.family = QStringLiteral("Courier");
        style.fixedPitch = true;
        page.styled(60, 100, QStringLiteral("begin"), style);
        page.styled(70, 112, QStringLiteral("first"), style);
        page.styled(80, 124, QStringLiteral("second"), style);
        page.styled(150, 124, QStringLiteral("remark"), style);
        page.styled(60, 136, QStringLiteral("end"), style);
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(QStringLiteral("begin\n  first\n    second        remark\nend</pre>")),
            qPrintable(bodyOf(text)));
    }

    void setsPageNumbersOfContentsApart()
    {
        PageMaker page;
        page.text(60, 100, QStringLiteral("The mill . . . . . . . . . . 7"));
        page.text(60, 112, QStringLiteral("Its wheel . . . . . . . . . . 12"));
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(
                QStringLiteral("<span class=\"entry\"><span>The mill</span><span class=\"dots\" aria-hidden=\"true\">"
                               " ..... </span><span>7</span></span>")),
            qPrintable(bodyOf(text)));
        QVERIFY(text.contains(QStringLiteral("<span>Its wheel</span>")));
        QVERIFY(text.contains(QStringLiteral("<span>12</span>")));
    }

    void keepsTextReadable()
    {
        PageMaker page;
        Style style;
        style.colour = white;
        page.raw().fills.push_back({{50, 80, 400, 110}, 0x203040});
        page.styled(60, 100, QStringLiteral("on a bar"), style);
        page.raw().pictures.push_back({{50, 200, 400, 400}});
        page.styled(60, 300, QStringLiteral("on a picture"), style);
        page.styled(60, 700, QStringLiteral("on nothing"), style);
        const QString text = html(page.build());
        const auto shaded = text.indexOf(QStringLiteral("<div class=\"shaded\" style=\"background:#203040\">"));
        QVERIFY2(shaded > 0 && shaded < text.indexOf(QStringLiteral("on a bar")), qPrintable(bodyOf(text)));
        static const QRegularExpression picture(QStringLiteral("<p([^>]*)>on a picture"));
        QVERIFY2(!picture.match(text).captured(1).contains(QStringLiteral("#ffffff")), qPrintable(bodyOf(text)));
        QVERIFY(picture.match(text).hasMatch());
    }

    void keepsLooksOfCells()
    {
        PageMaker page;
        page.grid({60, 160, 260}, {220, 240, 260, 300});
        page.bold(70, 234, QStringLiteral("Head"));
        page.bold(170, 234, QStringLiteral("Other"));
        page.text(70, 254, QStringLiteral("plain"));
        page.text(170, 254, QString::fromUtf8("שלום"));
        page.text(70, 283, QStringLiteral("middle"));
        const QString text = html(page.build());
        QVERIFY2(text.contains(QStringLiteral("<b>Head</b>")), qPrintable(bodyOf(text)));
        QCOMPARE(text.count(QStringLiteral(" dir=\"rtl\">ש")), 1);
        QCOMPARE(text.count(QStringLiteral("vertical-align:middle")), 1);
    }

    void setsPartsOfPageHeadersApart()
    {
        std::vector<RawPage> pages;
        for (int number = 1; number <= 3; ++number) {
            PageMaker page(number);
            page.text(60, 40, QStringLiteral("A report"));
            page.text(300, 40, QStringLiteral("2026"));
            page.text(500, 40, QString::number(number));
            page.lines(60, 100, prose(5, QString(number, QLatin1Char('m'))));
            const double right =
                page.text(60, 160, QStringLiteral("A wider line that reaches up to the right hand side of this page"));
            page.text((60 + right) / 2 - 5, 780, QString::number(number));
            pages.push_back(page.raw());
        }
        const QString text = html(buildDocument(pages));
        QVERIFY2(
            text.contains(
                QStringLiteral("<div class=\"parts\"><span>A report</span>\n<span>2026</span></div>\n</header>")),
            qPrintable(bodyOf(text)));
        QCOMPARE(text.count(QStringLiteral("A report")), 1);
        QVERIFY(!text.contains(QStringLiteral("<footer"))); // nothing but numbers
    }
};

QTEST_APPLESS_MAIN(HtmlLooksTest)
#include "html_looks_test.moc"
