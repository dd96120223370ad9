// SPDX-License-Identifier: GPL-3.0-or-later
// What readers and assistive technology navigate by: headings, notes, captions, table heads, page numbers, the outline.
#include "document_maker.h"
#include "html_pages.h"

#include <QRegularExpression>
#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

QStringList headingsIn(const QString &html)
{
    static const QRegularExpression expression(QStringLiteral("<(h[1-6])[^>]*>([^<]*)</h"));
    QStringList found;
    auto match = expression.globalMatch(html);
    while (match.hasNext()) {
        const QRegularExpressionMatch each = match.next();
        found.append(each.captured(1) + QLatin1Char(' ') + each.captured(2));
    }
    return found;
}

} // namespace

class HtmlStructureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headingsLeaveOutNoLevel()
    {
        DocumentMaker maker;
        maker.heading(QStringLiteral("Before"), 3);
        maker.heading(QStringLiteral("Title"), 1);
        maker.heading(QStringLiteral("Deep"), 4);
        maker.heading(QStringLiteral("Chapter"), 2);
        maker.heading(QStringLiteral("Section"), 4);
        const QString text = writtenHtml(maker.document());
        QCOMPARE(
            headingsIn(text), QStringList(
                                  {QStringLiteral("h2 Before"), QStringLiteral("h1 Title"), QStringLiteral("h2 Deep"),
                                   QStringLiteral("h2 Chapter"), QStringLiteral("h3 Section")}));
        QVERIFY(text.contains(QStringLiteral("<title>Title</title>")));
    }

    void documentsWithoutTitleGetOne()
    {
        DocumentMaker maker;
        maker.heading(QStringLiteral("One"), 1);
        maker.heading(QStringLiteral("Part"), 2);
        maker.heading(QStringLiteral("Two"), 1);
        const QString text = writtenHtml(maker.document());
        QCOMPARE(
            headingsIn(text), QStringList(
                                  {QStringLiteral("h1 a &lt; b"), QStringLiteral("h2 One"), QStringLiteral("h3 Part"),
                                   QStringLiteral("h2 Two")}));
        QCOMPARE(text.count(QStringLiteral("class=\"unseen\"")), 1);
    }

    void writesPageHeadersOnce()
    {
        DocumentMaker maker;
        for (int number = 1; number <= 4; ++number) {
            if (number > 1) {
                maker.addPage();
            }
            maker.add({maker.paragraph(QStringLiteral("text")), 0});
            const QString title = number < 4 ? QStringLiteral("First chapter") : QStringLiteral("Last chapter");
            maker.page().header = {maker.paragraph(title), maker.paragraph(QStringLiteral("2026"))};
            maker.page().footer = {maker.paragraph(QStringLiteral("– %1 –").arg(number + 10))};
        }
        const QString text = writtenHtml(maker.document());
        const QString header = text.section(QStringLiteral("<header>"), 1).section(QStringLiteral("</header>"), 0, 0);
        QVERIFY2(header.contains(QStringLiteral("First chapter")), qPrintable(bodyOf(text)));
        QVERIFY2(header.contains(QStringLiteral("2026")), qPrintable(bodyOf(text)));
        QCOMPARE(text.count(QStringLiteral("First chapter")), 1);
        QCOMPARE(text.section(QStringLiteral("id=\"page-4\""), 1).count(QStringLiteral("Last chapter")), 1);
        QVERIFY(!text.contains(QStringLiteral("<footer")));
        QVERIFY(text.contains(QStringLiteral("role=\"doc-pagebreak\" title=\"13\"></span>")));
    }

    void headersOfFewPagesStayThere_data()
    {
        QTest::addColumn<int>("pages");
        QTest::addColumn<bool>("ofDocument");
        QTest::newRow("one of three") << 3 << true;
        QTest::newRow("one of four") << 4 << false;
    }

    void headersOfFewPagesStayThere()
    {
        QFETCH(int, pages);
        QFETCH(bool, ofDocument);
        DocumentMaker maker;
        maker.page().header = {maker.paragraph(QStringLiteral("Letterhead"))};
        for (int i = 1; i < pages; ++i) {
            maker.addPage();
            maker.page().header = {maker.paragraph(QStringLiteral("Letter to A. Hale"))};
        }
        const QString text = writtenHtml(maker.document());
        QCOMPARE(text.indexOf(QStringLiteral("Letterhead")) < text.indexOf(QStringLiteral("<main>")), ofDocument);
        QVERIFY(text.indexOf(QStringLiteral("Letterhead")) < text.indexOf(QStringLiteral("id=\"page-2\"")));
    }

    void onePageKeepsItsNumber()
    {
        DocumentMaker maker;
        maker.page().footer = {maker.paragraph(QStringLiteral("7"))};
        const QString text = writtenHtml(maker.document());
        QVERIFY2(text.contains(QStringLiteral("<footer><div>7</div>\n</footer>")), qPrintable(bodyOf(text)));
        QVERIFY(!text.contains(QStringLiteral("doc-pagebreak")));
    }

    void linksNotesBothWays()
    {
        DocumentMaker maker;
        Paragraph paragraph = maker.paragraph(QStringLiteral("Text 1 more 1 ends"));
        for (const std::size_t i : {std::size_t(1), std::size_t(3)}) {
            paragraph.lines[0].words[i].note = NoteId(0);
            paragraph.lines[0].words[i].shift = BaselineShift::Superscript;
        }
        maker.add({paragraph, 0});
        Paragraph note = maker.paragraph(QStringLiteral("1 A remark"));
        note.role = Role::Footnote;
        note.note = NoteId(0);
        maker.add({note, 0});
        const QString text = writtenHtml(maker.document());
        QVERIFY2(
            text.contains(QStringLiteral("<a href=\"#note-1\" role=\"doc-noteref\" id=\"noteref-1\"><sup>1</sup></a>")),
            qPrintable(bodyOf(text)));
        QCOMPARE(text.count(QStringLiteral("id=\"noteref-1\"")), 1);
        QCOMPARE(text.count(QStringLiteral("href=\"#note-1\"")), 2);
        QVERIFY2(
            text.contains(QStringLiteral("<p id=\"note-1\" role=\"doc-footnote\"><a href=\"#noteref-1\" "
                                         "role=\"doc-backlink\">1</a> A remark</p>")),
            qPrintable(bodyOf(text)));
    }

    void marksOfMissingNotesAreNoLinks()
    {
        DocumentMaker maker;
        Paragraph paragraph = maker.paragraph(QStringLiteral("Text 1"));
        paragraph.lines[0].words[1].note = NoteId(3);
        paragraph.lines[0].words[0].link = QStringLiteral("#page=2"); // not part of the document either
        maker.add({paragraph, 0});
        QVERIFY2(
            !writtenHtml(maker.document()).contains(QStringLiteral("<a ")),
            qPrintable(bodyOf(writtenHtml(maker.document()))));
    }

    void figuresContainTheirCaption_data()
    {
        QTest::addColumn<bool>("above");
        QTest::newRow("above") << true;
        QTest::newRow("below") << false;
    }

    void figuresContainTheirCaption()
    {
        QFETCH(bool, above);
        DocumentMaker maker;
        Figure figure;
        figure.box = {60, 100, 160, 200};
        maker.document().figures.push_back({1, figure.box});
        Paragraph caption = maker.paragraph(QStringLiteral("Figure 1: A boat"));
        caption.role = Role::Caption;
        caption.captionOf = figure.id;
        if (above) {
            maker.add({caption, 0});
            maker.add({figure, 0});
        } else {
            maker.add({figure, 0});
            maker.add({caption, 0});
        }
        const QString text = writtenHtml(maker.document());
        const QString inside = text.section(QStringLiteral("<figure>"), 1).section(QStringLiteral("</figure>"), 0, 0);
        QVERIFY2(
            inside.contains(QStringLiteral("<figcaption class=\"caption\">Figure 1: A boat</figcaption>")),
            qPrintable(bodyOf(text)));
        QVERIFY2(inside.contains(QStringLiteral("<img alt=\"Figure 1: A boat\"")), qPrintable(bodyOf(text)));
    }

    void tablesHaveHeads()
    {
        Table table;
        table.box = {60, 100, 260, 160};
        table.columnEdges = {60, 160, 260};
        table.rowEdges = {100, 120, 140, 160};
        table.headerRows = 1;
        DocumentMaker maker;
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 2; ++column) {
                Cell cell;
                cell.row = row;
                cell.column = column;
                if (row > 0 || column > 0) {
                    cell.paragraphs = {maker.paragraph(QStringLiteral("r%1c%2").arg(row).arg(column))};
                }
                table.cells.push_back(cell);
            }
        }
        table.cells[1].rowSpan = 2; // extends the head
        table.cells.erase(table.cells.begin() + 3);
        maker.add({table, 0});
        const QString text = writtenHtml(maker.document());
        QVERIFY2(
            text.contains(QStringLiteral("<thead><tr><td></td><th scope=\"col\" rowspan=\"2\"")),
            qPrintable(bodyOf(text)));
        QVERIFY2(
            text.contains(QStringLiteral(">r1c0</th></tr>\n</thead><tbody><tr><td")) ||
                text.contains(QStringLiteral(">r1c0</th></tr></thead><tbody><tr><td")),
            qPrintable(bodyOf(text)));
        QCOMPARE(text.count(QStringLiteral("<th ")), 2);
        QVERIFY(text.contains(QStringLiteral("<div class=\"wide\" tabindex=\"0\">")));
    }

    void tablesOfHeadsHaveNone()
    {
        Table table;
        table.columnEdges = {60, 160};
        table.rowEdges = {100, 120};
        table.headerRows = 1;
        DocumentMaker maker;
        Cell cell;
        cell.paragraphs = {maker.paragraph(QStringLiteral("all"))};
        table.cells = {cell};
        maker.add({table, 0});
        QVERIFY2(
            !writtenHtml(maker.document()).contains(QStringLiteral("<th")),
            qPrintable(bodyOf(writtenHtml(maker.document()))));
    }

    void outlineLeadsToHeadings()
    {
        DocumentMaker maker;
        maker.heading(QStringLiteral("1. Of boats"), 1);
        maker.addPage();
        maker.add({maker.paragraph(QStringLiteral("text")), 0});
        maker.document().facts.outline = {
            {QStringLiteral("1 Of Boats"), 0, 1, 0},
            {QStringLiteral("Ropes & sails"), 1, 2, 0},
            {QStringLiteral("Nowhere"), 1, 0, 0},
            {QStringLiteral("Elsewhere"), 1, 9, 0},
            {QStringLiteral("Text"), 0, 2, 0}};
        const QString text = writtenHtml(maker.document());
        QVERIFY2(
            text.contains(QStringLiteral("<nav><ul><li><a href=\"#heading-1\">1 Of Boats</a><ul><li><a "
                                         "href=\"#page-2\">Ropes &amp; sails</a></li></ul>\n</li>\n<li><a "
                                         "href=\"#page-2\">Text</a></li></ul>\n</nav>")),
            qPrintable(bodyOf(text)));
        maker.document().facts.outline.resize(1);
        QVERIFY(!writtenHtml(maker.document()).contains(QStringLiteral("<nav")));
    }
};

QTEST_APPLESS_MAIN(HtmlStructureTest)
#include "html_structure_test.moc"
