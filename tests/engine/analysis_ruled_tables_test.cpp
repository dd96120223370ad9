// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "test_text.h"

#include "analysis/tables/column_alignment.h"
#include "analysis/tables/lattice.h"

#include <QTest>

#include <type_traits>

using namespace quorra;
using namespace quorra::model;

static_assert(!std::is_copy_constructible_v<Lattice> && !std::is_move_constructible_v<Lattice>);

class AnalysisRuledTablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsRuledTable()
    {
        PageMaker page;
        page.grid({50, 150, 250}, {100, 120, 140});
        page.text(60, 114, QStringLiteral("one two"));
        page.text(160, 114, QStringLiteral("three"));
        page.text(60, 134, QStringLiteral("four"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QVERIFY(table->ruled);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 2);
        QCOMPARE(cellText(*table, 0, 0), QStringLiteral("one two"));
        QCOMPARE(cellText(*table, 0, 1), QStringLiteral("three"));
        QCOMPARE(cellText(*table, 1, 0), QStringLiteral("four"));
        QCOMPARE(cellText(*table, 1, 1), QString());
        QVERIFY(cellAt(*table, 0, 0)->top.width > 0);
        QVERIFY(document.pages.front().rules.empty()); // the table's lines are not drawn a second time
    }

    void joinsPiecesOfLines()
    {
        PageMaker page; // each cell draws its own sides, dashes leave gaps
        for (const double x : {50.0, 150.0}) {
            for (const double y : {100.0, 120.0}) {
                page.rule(x, y, x + 48, y);
                page.rule(x + 50, y, x + 100, y);
                page.rule(x, y + 20, x + 100, y + 20);
                page.rule(x, y, x, y + 20);
                page.rule(x + 100, y + 0.4, x + 100, y + 20);
                page.text(x + 5, y + 14, QStringLiteral("cell"));
            }
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 2);
        QCOMPARE(table->cells.size(), std::size_t(4));
    }

    void linesTakeTheColourOfTheirLongestPiece()
    {
        PageMaker page;
        page.grid({50, 150, 250}, {100, 120, 140});
        page.rule(49, 120, 52, 120); // the end of a frame around the table
        page.raw().rules.back().colour = 0x0071bc;
        page.text(60, 114, QStringLiteral("one"));
        page.text(160, 114, QStringLiteral("two"));
        page.text(60, 134, QStringLiteral("three"));
        page.text(160, 134, QStringLiteral("four"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(cellAt(*table, 0, 1)->bottom.colour, black);
    }

    void findsSpanningCells()
    {
        PageMaker page;
        page.rule(50, 100, 350, 100);
        page.rule(150, 120, 350, 120); // the first column goes on downwards
        page.rule(50, 140, 350, 140);
        page.rule(50, 100, 50, 140);
        page.rule(150, 100, 150, 140);
        page.rule(250, 120, 250, 140); // the head spans both columns
        page.rule(350, 100, 350, 140);
        page.text(60, 124, QStringLiteral("key"));
        page.text(200, 114, QStringLiteral("head"));
        page.text(160, 134, QStringLiteral("left"));
        page.text(260, 134, QStringLiteral("right"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->cells.size(), std::size_t(4));
        QCOMPARE(cellAt(*table, 0, 0)->rowSpan, 2);
        QCOMPARE(cellText(*table, 0, 0), QStringLiteral("key"));
        QCOMPARE(cellAt(*table, 0, 1)->columnSpan, 2);
        QCOMPARE(cellText(*table, 0, 1), QStringLiteral("head"));
        QCOMPARE(cellText(*table, 1, 2), QStringLiteral("right"));
    }

    void splitsRowsThatNoLineDivides()
    {
        PageMaker page;
        page.grid({50, 150, 250}, {100, 160});
        for (int i = 0; i < 4; ++i) {
            page.text(60, 112 + 13 * i, QString::number(10 + i));
            page.text(160, 112 + 13 * i, QString::number(20 + i));
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 4);
        QCOMPARE(cellText(*table, 2, 1), QStringLiteral("22"));
    }

    void frameAroundTablesIsNoTable()
    {
        PageMaker page;
        page.grid({50, 250, 450}, {90, 150});
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                page.text(60 + 100 * column, 104 + 13 * row, QString::number(100 + 10 * row + column));
            }
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QVERIFY(!table->ruled);
        QCOMPARE(table->columns(), 4);
        QCOMPARE(cellText(*table, 2, 3), QStringLiteral("123"));
    }

    void boxAroundTextIsNoTable()
    {
        PageMaker page;
        page.grid({50, 350}, {90, 200});
        page.lines(60, 110, prose(6));
        QVERIFY(!firstTable(page.build()));
    }

    // A glossary: without numbers nothing tells a head from rows, and every line is a row.
    void proseIsNoTable_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("one column") << 0;
        QTest::newRow("two columns") << 1;
        QTest::newRow("wide spaces") << 2;
        QTest::newRow("table of contents") << 3;
        QTest::newRow("list") << 4;
    }

    void proseIsNoTable()
    {
        QFETCH(int, kind);
        PageMaker page;
        for (int i = 0; i < 8; ++i) {
            const double y = 200 + 12 * i;
            switch (kind) {
            case 0:
                page.text(60, y, prose(8).at(i));
                break;
            case 1:
                page.text(40, y, prose(8).at(i));
                page.text(320, y, prose(8, QStringLiteral("omega")).at(i));
                break;
            case 2: { // justified lines have spaces of up to one em, never one above the other
                const double end = page.text(60, y, QStringLiteral("words that stand ") + QString(i, QLatin1Char('x')));
                page.text(end + 6, y, QStringLiteral("apart from the others in this line of text"));
                break;
            }
            case 3:
                page.text(60, y, QStringLiteral("Chapter %1 ........................").arg(i));
                page.text(400, y, QString::number(10 * i));
                break;
            default:
                page.text(60, y, QString::number(i + 1) + QLatin1Char('.'));
                page.text(90, y, QStringLiteral("an entry of the list"));
            }
        }
        QVERIFY(!firstTable(page.build()));
    }

    void cellsAreAligned()
    {
        PageMaker page;
        page.grid({50, 150, 250}, {100, 120, 140});
        page.text(52, 114, QStringLiteral("left"));
        page.text(190, 114, QStringLiteral("mid"));
        page.text(60, 134, QStringLiteral("x"));
        page.text(233, 134, QStringLiteral("777"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(cellAt(*table, 0, 0)->paragraphs.front().alignment, Alignment::Left);
        QCOMPARE(cellAt(*table, 0, 1)->paragraphs.front().alignment, Alignment::Centre);
        QCOMPARE(cellAt(*table, 1, 1)->paragraphs.front().alignment, Alignment::Right);
    }

    void alignsColumnsByTheirSharedEdge()
    {
        Table table;
        table.columnEdges = {0, 100, 200};
        table.rowEdges = {0, 20, 40, 60, 80};
        const auto add = [&table](int row, int column, const QString &text, double left, double right) {
            Paragraph paragraph = testText::paragraphOf(text);
            paragraph.box = {left, 20.0 * row, right, 20.0 * row + 10};
            paragraph.alignment = row % 2 == 0 ? Alignment::Centre : Alignment::Left;
            Cell cell;
            cell.row = row;
            cell.column = column;
            cell.paragraphs = {paragraph};
            table.cells.push_back(cell);
        };
        const double widths[] = {10, 30, 20, 25};
        for (int row = 0; row < 4; ++row) {
            const double indent = row == 3 ? 20 : 5;
            add(row, 0, QStringLiteral("text"), indent, indent + widths[row]);
            add(row, 1, QStringLiteral("1,234"), 180 - widths[row], 180);
        }
        alignColumns(table);
        for (const Cell &cell : table.cells) {
            const Alignment before = cell.row % 2 == 0 ? Alignment::Centre : Alignment::Left;
            const bool indented = cell.row == 3 && cell.column == 0; // begins where no other text does
            const Alignment wanted = indented ? before : cell.column == 0 ? Alignment::Left : Alignment::Right;
            QCOMPARE(cell.paragraphs.front().alignment, wanted);
        }
    }

    void everyPlaceIsCoveredOnce()
    {
        for (const Document &document : {plainTable().build()}) {
            const Table *table = firstTable(document);
            QVERIFY(table);
            int places = 0;
            for (const Cell &cell : table->cells) {
                places += cell.rowSpan * cell.columnSpan;
            }
            QCOMPARE(places, table->rows() * table->columns());
        }
    }
};

QTEST_APPLESS_MAIN(AnalysisRuledTablesTest)
#include "analysis_ruled_tables_test.moc"
