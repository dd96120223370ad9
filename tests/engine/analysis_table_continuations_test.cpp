// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_text.h"
#include "threshold_edges.h"

#include "analysis/tables/table_continuations.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

using tableContinuations::thresholds;

constexpr double pageHeight = 800;

Paragraph textAt(double top, const QString &text, int lines = 1)
{
    Paragraph paragraph = testText::paragraphOf(text);
    paragraph.lines.resize(static_cast<std::size_t>(lines), paragraph.lines.front());
    paragraph.box = {50, top, 550, top + 12};
    return paragraph;
}

// A table of two columns, with those texts row by row.
Table tableAt(double top, double bottom, const QStringList &texts, double middle = 200, bool ruled = true)
{
    Table table;
    table.ruled = ruled;
    table.columnEdges = {50, middle, 550};
    const auto rows = static_cast<int>(texts.size() / 2);
    for (int i = 0; i <= rows; ++i) {
        table.rowEdges.push_back(top + i * (bottom - top) / rows);
    }
    table.box = {50, top, 550, bottom};
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        Cell cell;
        cell.row = i / 2;
        cell.column = i % 2;
        cell.paragraphs = {testText::paragraphOf(texts[i])};
        table.cells.push_back(cell);
    }
    return table;
}

Page pageOf(std::vector<Block> blocks)
{
    Page page;
    page.height = pageHeight;
    page.sections.push_back({{{50, 0, 550, pageHeight}}, std::move(blocks)});
    return page;
}

template <typename... Contents>
Page pageWith(const Contents &...contents)
{
    return pageOf({Block{contents, 0}...});
}

constexpr QLatin1String head("Town");

QStringList upper()
{
    return {head, QStringLiteral("Boats"), QStringLiteral("Alder"), QStringLiteral("4")};
}

QStringList lower()
{
    return {head, QStringLiteral("Boats"), QStringLiteral("Dunn"), QStringLiteral("7")};
}

QStringList lowerWithoutHead()
{
    return {QStringLiteral("Eames"), QStringLiteral("9"), QStringLiteral("Dunn"), QStringLiteral("7")};
}

// The last table of the last page after the search.
Table lastTable(std::vector<Page> pages)
{
    Document document;
    document.pages = std::move(pages);
    markTableContinuations(document);
    return *document.pages.back().sections.back().blocks.back().table();
}

bool goesOn(const Page &first, const Page &second)
{
    return lastTable({first, second}).continuesPrevious;
}

std::vector<Edge> edges()
{
    const auto begin = tableAt(300, 750, upper());
    return {
        maximum(
            "drawn edges", thresholds.sameRuledEdge,
            [=](double apart) {
                return goesOn(pageWith(begin), pageWith(tableAt(50, 200, lowerWithoutHead(), 200 + apart)));
            }),
        maximum(
            "edges of text", thresholds.sameOpenEdge,
            [=](double apart) {
                return goesOn(
                    pageWith(tableAt(300, 750, upper(), 200, false)),
                    pageWith(tableAt(50, 200, lowerWithoutHead(), 200 + apart, false)));
            }),
        maximum(
            "start of the second part", thresholds.maxTop,
            [=](double share) { return goesOn(pageWith(begin), pageWith(tableAt(share * pageHeight, 600, lower()))); }),
        minimum(
            "end of the first part", thresholds.minBottom,
            [=](double share) {
                return goesOn(pageWith(tableAt(50, share * pageHeight, upper())), pageWith(tableAt(50, 200, lower())));
            }),
        most(
            "lines of a title", thresholds.maxTitleLines,
            [=](double lines) {
                const auto title = textAt(20, QStringLiteral("Table 3"), static_cast<int>(lines));
                return goesOn(pageWith(title, begin), pageWith(title, tableAt(100, 200, lower())));
            }),
    };
}

} // namespace

/// Tables that go on from one page to the next.
class AnalysisTableContinuationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholds_data() { addRows(edges()); }
    void thresholds() { checkRow(edges()); }

    void repeatedHeadsAreCounted()
    {
        const Table table = lastTable({pageWith(tableAt(300, 750, upper())), pageWith(tableAt(50, 200, lower()))});
        QVERIFY(table.continuesPrevious);
        QCOMPARE(table.headerRows, 1);
    }

    void headsOfTheFirstPartCountOnEveryPage()
    {
        const Table table = lastTable(
            {pageWith(tableAt(300, 750, upper())), pageWith(tableAt(50, 780, lowerWithoutHead())),
             pageWith(tableAt(50, 200, lower()))});
        QVERIFY(table.continuesPrevious);
        QCOMPARE(table.headerRows, 1);
    }

    void titleMustBeTheSame()
    {
        const Page first = pageWith(textAt(280, QStringLiteral("Table 3. Boats")), tableAt(300, 750, upper()));
        const auto second = [](const QString &title) { return pageWith(textAt(30, title), tableAt(50, 200, lower())); };
        QVERIFY(goesOn(first, second(QStringLiteral("Table 3 (continued)"))));
        QVERIFY(!goesOn(first, second(QStringLiteral("Table 4. Boats"))));
        QVERIFY(!goesOn(pageWith(tableAt(300, 750, upper())), second(QStringLiteral("Table 3 (continued)"))));
    }

    void rowsGoOnInsideSentences()
    {
        const auto second = [](const QString &town, const QString &boats) {
            return lastTable(
                {pageWith(tableAt(
                     300, 750,
                     {head, QStringLiteral("Boats"), QStringLiteral("Alder"),
                      QStringLiteral("Four, of which two are mo-")})),
                 pageWith(tableAt(
                     50, 200,
                     {head, QStringLiteral("Boats"), town, boats, QStringLiteral("Dunn"), QStringLiteral("7")}))});
        };
        QVERIFY(second({}, QStringLiteral("tor boats")).continuesRow);
        QVERIFY(!second({}, QStringLiteral("Other")).continuesRow);                          // a sentence of its own
        QVERIFY(!second(QStringLiteral("Brook"), QStringLiteral("tor boats")).continuesRow); // a row of its own
        QVERIFY(!second(QStringLiteral("alder"), QStringLiteral("Eight")).continuesRow);
        QVERIFY(!second({}, {}).continuesRow);
    }

    void notesAtTheFootStandBetween()
    {
        Paragraph note = textAt(770, QStringLiteral("Without rafts."));
        note.role = Role::Footnote;
        const Page second = pageWith(tableAt(50, 200, lower()));
        QVERIFY(goesOn(pageWith(tableAt(300, 750, upper()), note), second));
        note.role = Role::Body;
        QVERIFY(!goesOn(pageWith(tableAt(300, 750, upper()), note), second));
    }

    void otherTablesDoNotGoOn()
    {
        const Page first = pageWith(tableAt(300, 750, upper()));
        QVERIFY(!goesOn(first, pageWith(tableAt(50, 200, lowerWithoutHead(), 300))));
        Table narrow = tableAt(50, 200, lower());
        narrow.columnEdges = {50, 550};
        QVERIFY(!goesOn(first, pageWith(narrow)));
        QVERIFY(!lastTable({first, pageWith(textAt(50, QString(head))), pageWith(tableAt(50, 200, lower()))})
                     .continuesPrevious);
        Document nothing;
        markTableContinuations(nothing);
        QVERIFY(nothing.pages.empty());
    }
};

QTEST_APPLESS_MAIN(AnalysisTableContinuationsTest)
#include "analysis_table_continuations_test.moc"
