// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/faint_text.h"
#include "document/font_family.h"
#include "document/line_pieces.h"
#include "document/link.h"
#include "document/list_number.h"
#include "html_pages.h"
#include "pdf/font_name.h"
#include "test_text.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

/// Two words, the gap between them in em of the larger one.
Line twoWords(double gap, double rise = 0)
{
    Line line = testText::lineOf(QStringLiteral("first second"));
    Word &next = line.words[1];
    const double left = line.words[0].box.right + gap * next.style->size;
    next.box = {left, 0, left + 30, 10};
    next.baseline -= rise * next.style->size;
    return line;
}

} // namespace

/// Facts about text that have one place below the writers.
class DocumentFactsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void marksOfListItemsAreNumbers_data()
    {
        QTest::addColumn<QString>("previous");
        QTest::addColumn<QString>("mark");
        QTest::addColumn<QString>("read");
        QTest::newRow("decimal") << QString() << QStringLiteral("12.") << QStringLiteral("||12|0|.");
        QTest::newRow("parentheses") << QString() << QStringLiteral("(a)") << QStringLiteral("|(|1|1|)");
        QTest::newRow("upper letter") << QString() << QStringLiteral("C.") << QStringLiteral("||3|2|.");
        QTest::newRow("Roman") << QString() << QStringLiteral("xiv)") << QStringLiteral("||14|3|)");
        QTest::newRow("upper Roman") << QString() << QStringLiteral("II") << QStringLiteral("||2|4|");
        QTest::newRow("first i") << QString() << QStringLiteral("i.") << QStringLiteral("||1|3|.");
        QTest::newRow("i after h") << QStringLiteral("h.") << QStringLiteral("i.") << QStringLiteral("+||9|1|.");
        QTest::newRow("v after iv") << QStringLiteral("iv.") << QStringLiteral("v.") << QStringLiteral("+||5|3|.");
        QTest::newRow("first v") << QString() << QStringLiteral("v.") << QStringLiteral("||22|1|.");
        QTest::newRow("not after z") << QStringLiteral("(z)") << QStringLiteral("(aa)") << QString();
        QTest::newRow("other sign") << QStringLiteral("1.") << QStringLiteral("2)") << QStringLiteral("||2|0|)");
        QTest::newRow("bullet") << QString() << QStringLiteral("•") << QString();
        QTest::newRow("several parts") << QString() << QStringLiteral("1.2") << QString();
        QTest::newRow("no Roman numeral") << QString() << QStringLiteral("iiii.") << QString();
        QTest::newRow("mixed") << QString() << QStringLiteral("B1.") << QString();
        QTest::newRow("large") << QString() << QStringLiteral("20111.") << QString();
        QTest::newRow("empty") << QString() << QString() << QString();
    }

    void marksOfListItemsAreNumbers()
    {
        QFETCH(QString, previous);
        QFETCH(QString, mark);
        QFETCH(QString, read);
        const std::optional<ListNumber> before = listNumber(previous);
        const std::optional<ListNumber> number = listNumber(mark, before);
        QString text;
        if (number) {
            const bool counted = before && continuesNumbers(*before, *number);
            text = (counted ? QStringLiteral("+|") : QStringLiteral("|")) + number->before + u'|' +
                   QString::number(number->value) + u'|' + QString::number(static_cast<int>(number->format)) + u'|' +
                   number->after;
        }
        QCOMPARE(text, read);
    }

    void faintTextWithoutItsBackgroundIsBlack_data()
    {
        QTest::addColumn<bool>("filled");
        QTest::addColumn<bool>("shaded");
        QTest::addColumn<bool>("onFigure");
        QTest::addColumn<bool>("figuresRemain");
        QTest::addColumn<bool>("darkened");
        QTest::newRow("pale on paper") << false << false << false << true << false;
        QTest::newRow("on a fill") << true << false << false << true << true;
        QTest::newRow("shaded by the fill") << true << true << false << true << false;
        QTest::newRow("on a picture that remains") << false << false << true << true << false;
        QTest::newRow("on a picture that does not") << false << false << true << false << true;
    }

    void faintTextWithoutItsBackgroundIsBlack()
    {
        QFETCH(bool, filled);
        QFETCH(bool, shaded);
        QFETCH(bool, onFigure);
        QFETCH(bool, figuresRemain);
        QFETCH(bool, darkened);
        Document document;
        Style pale;
        pale.colour = 0xf4f4f4;
        Paragraph paragraph;
        paragraph.box = {100, 100, 200, 112};
        paragraph.lines.push_back(testText::lineOf(QStringLiteral("pale")));
        paragraph.lines[0].words[0].style = document.styles.add(pale);
        if (shaded) {
            paragraph.shading = 0x203040;
        }
        Page page;
        if (filled) {
            page.fills.push_back({{90, 90, 300, 400}, 0x203040});
        }
        page.sections.emplace_back();
        std::vector<Block> &blocks = page.sections.back().blocks;
        blocks.emplace_back().content = paragraph;
        if (onFigure) {
            Figure figure;
            figure.box = {90, 90, 300, 400};
            figure.behindText = true;
            blocks.emplace_back().content = figure;
        }
        document.pages.push_back(page);
        darkenFaintText(document, figuresRemain);
        const Paragraph &found = *document.pages[0].sections[0].blocks[0].paragraph();
        QCOMPARE(found.lines[0].words[0].style->colour, darkened ? black : pale.colour);
    }

    void keepsSafeAddresses_data()
    {
        QTest::addColumn<QString>("link");
        QTest::addColumn<QString>("address");
        const auto row = [](const char *link, const char *address) {
            QTest::newRow(link) << QString::fromUtf8(link) << QString::fromUtf8(address);
        };
        row("http://example.org/", "http://example.org/");
        row("HTTPS://example.org/a?b=1&c=2", "HTTPS://example.org/a?b=1&c=2");
        row("ftp://example.org/file", "ftp://example.org/file");
        row("mailto:someone@example.org", "mailto:someone@example.org");
        row("http://example.org/\x01", "http://example.org/");
        row("file:///etc/passwd", "");
        row("javascript:alert(1)", "");
        row("macro:run", "");
        row("httpx://example.org/", "");
        row(" http://example.org/", "");
        row("#page=12", "#at-12");
        row("#page=0", "");
        row("#page=-3", "");
        row("#page=3x", "");
        row("#page=99999999999", "");
        row("#chapter", "");
        row("", "");
    }

    void keepsSafeAddresses()
    {
        QFETCH(QString, link);
        QTEST(linkAddress(link, QLatin1String("#at-")), "address");
    }

    void namesPages() { QCOMPARE(linkAddress(pageLink(7), QLatin1String("#")), QStringLiteral("#7")); }

    void htmlLeavesUnsafeLinksOut()
    {
        PageMaker page;
        page.text(60, 100, QStringLiteral("safe unsafe plain"));
        page.raw().words[0].link = QStringLiteral("https://example.org/");
        page.raw().words[1].link = QStringLiteral("javascript:alert(1)");
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(QStringLiteral("<a href=\"https://example.org/\">safe</a> unsafe plain")),
            qPrintable(bodyOf(text)));
    }

    void tellsFontKindsByName()
    {
        for (const char *name :
             {"CMR10", "SFRM1095", "CMBX12", "TimesNewRomanPSMT", "DejaVuSerif-Bold", "ITC Garamond",
              "NewCenturySchlbk"}) {
            QVERIFY2(fontKindByName(QLatin1String(name)) == FontKind::Serif, name);
        }
        for (const char *name :
             {"CMSS10", "SFSS1000", "MSSansSerif", "TeXGyreHeros-Regular", "Century Gothic", "SFProText"}) {
            QVERIFY2(fontKindByName(QLatin1String(name)) != FontKind::Serif, name);
        }
        for (const char *name : {"CMTT10", "DejaVuSansMono", "Courier", "Lucida Sans Typewriter"}) {
            QVERIFY2(fontKindByName(QLatin1String(name)) == FontKind::FixedPitch, name);
        }
        QVERIFY(fontKindByName(QStringLiteral("Frobnicate")) == FontKind::Unknown);
        QVERIFY(parseFontName(QStringLiteral("ABCDEF+SFRM1095")).kind == FontKind::Serif);
    }

    void findsFamiliesByTheLongestBeginning()
    {
        const auto nameOf = [](const char *name) { return findFontFamily(QLatin1String(name))->name; };
        QCOMPARE(nameOf("Arial"), QLatin1String("Arial"));
        QCOMPARE(nameOf("ArialNarrow-Bold"), QLatin1String("Arial Narrow"));
        QCOMPARE(nameOf("DejaVuSansMono-Bold"), QLatin1String("DejaVu Sans Mono"));
        QVERIFY(!findFontFamily(QStringLiteral("MyArial")));
        QVERIFY(!findFontFamily(QString()));
    }

    // A family whose widths are measured is set in the widths of the common family of its kind.
    void measuredFamiliesHaveAKind()
    {
        for (const char *name : {"Times New Roman", "Arial", "Courier New", "Helvetica", "Liberation Mono"}) {
            const FontFamily *family = findFontFamily(QLatin1String(name));
            QVERIFY2(family && family->widths == FontWidths::Measured && family->kind != FontKind::Unknown, name);
        }
        QVERIFY(findFontFamily(QStringLiteral("Calibri"))->widths == FontWidths::Substituted);
        QVERIFY(findFontFamily(QStringLiteral("Verdana"))->widths == FontWidths::Unknown);
        QVERIFY(findFontFamily(QStringLiteral("Verdana"))->widespread);
        QVERIFY(!findFontFamily(QStringLiteral("Helvetica"))->widespread);
    }

    void knowsTypesettingFaces()
    {
        for (const char *name : {"CMR10", "SFBX1095", "MSBM10"}) {
            QVERIFY2(isTypesettingFace(QLatin1String(name)), name);
        }
        for (const char *name : {"Arial", "Univers55", "C10", "CMR", "CMR10 Bold"}) {
            QVERIFY2(!isTypesettingFace(QLatin1String(name)), name);
        }
    }

    void countsLettersForTheDominantStyle()
    {
        Style small;
        small.size = 8;
        Style large;
        large.size = 12;
        const auto run = [](const char *text, const Style &style, BaselineShift shift = BaselineShift::None) {
            return Run{QLatin1String(text), style, shift, {}};
        };
        QVERIFY(dominantStyle({run("ab", small), run("abc", large)}) == large);
        QVERIFY(dominantStyle({run("abc", small), run("abc", large)}) == small);          // the first of equals
        QVERIFY(dominantStyle({run("ab ........ ", small), run("abc", large)}) == large); // dots are no letters
        QVERIFY(dominantStyle({run("ab", large), run("12345", small, BaselineShift::Superscript)}) == large);
        QVERIFY(dominantStyle({run("1", small, BaselineShift::Superscript)}) == small);
        QVERIFY(dominantStyle({}) == Style{});
        StyleCount none;
        QVERIFY(none.dominant(large) == large);
    }

    void theLargestSizeLeavesListMarksOut()
    {
        Style large;
        large.size = 20;
        Paragraph paragraph = testText::paragraphOf(QStringLiteral("* some text"));
        paragraph.lines[0].words[0].style = testText::styled(large);
        QCOMPARE(largestSize(paragraph), 20.0);
        paragraph.listItem = ListItem{QStringLiteral("*"), false, 0};
        QCOMPARE(largestSize(paragraph), 10.0);
        QCOMPARE(largestSize(Line()), 10.0);
    }

    void cutsLinesWhereWordsStandApart()
    {
        for (const PieceLimits &limits : {textLimits, pageHeaderLimits, labelLimits}) {
            QCOMPARE(linePieces(twoWords(limits.gap - 0.01), limits).size(), std::size_t{1});
            QCOMPARE(linePieces(twoWords(limits.gap + 0.01), limits).size(), std::size_t{2});
        }
        Line rotated = twoWords(10);
        rotated.rotation = 90;
        QCOMPARE(linePieces(rotated, textLimits).size(), std::size_t{1});
        Line backwards = twoWords(10);
        std::swap(backwards.words[0], backwards.words[1]);
        QCOMPARE(linePieces(backwards, textLimits).size(), std::size_t{2});
    }

    void cutsLinesWhereBaselinesDiffer()
    {
        QCOMPARE(linePieces(twoWords(0.3, 0.69), textLimits).size(), std::size_t{1});
        const std::vector<Line> pieces = linePieces(twoWords(0.3, 0.71), textLimits);
        QCOMPARE(pieces.size(), std::size_t{2});
        QCOMPARE(pieces[0].baseline, 10.0);
        QCOMPARE(pieces[1].baseline, 10.0 - 7.1);
        QCOMPARE(linePieces(twoWords(9, 0.2), textLimits)[1].baseline, 10.0 - 2);
        QCOMPARE(linePieces(twoWords(1, 0.2), textLimits)[0].baseline, 10.0);
        Line note = twoWords(9, 0.2); // begins with the small, raised mark of a note
        note.words.push_back(note.words[1]);
        note.words[1].style = testText::styled({{}, 6});
        note.words[2].baseline = 10;
        QCOMPARE(linePieces(note, textLimits)[1].baseline, 10.0);
    }
};

QTEST_APPLESS_MAIN(DocumentFactsTest)
#include "document_facts_test.moc"
