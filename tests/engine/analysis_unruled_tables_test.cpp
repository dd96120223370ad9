// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/tables/unruled_table.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

/// Tables that only the alignment of their text shows.
class AnalysisUnruledTablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheTableBetweenLines()
    {
        PageMaker page = plainTable();
        const QString words = QStringLiteral("as it is to be so it is to be as it is so");
        for (int row = 0; row < 6; ++row) {
            page.text(60, 116 + 14 * row, words);
            page.text(260, 116 + 14 * row, words);
        }
        std::vector<Rule> lines;
        const auto tables = [&] {
            WordRefs all;
            for (const RawWord &word : page.raw().words) {
                all.push_back(&word);
            }
            return findUnruledTables(textLinesOf(std::move(all)), {lines, {}});
        };
        QVERIFY(tables().empty());
        lines.push_back({55, 189, 480, 189, 0.5, black});
        const std::vector<UnruledTable> found = tables();
        QCOMPARE(found.size(), std::size_t(1));
        QCOMPARE(found[0].firstLine, std::size_t(6));
        QCOMPARE(found[0].found.table.rows(), 4);
    }

    void findsUnruledTable()
    {
        const Document document = plainTable().build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QVERIFY(!table->ruled);
        QCOMPARE(table->rows(), 4);
        QCOMPARE(table->columns(), 3);
        QCOMPARE(cellText(*table, 0, 0), QStringLiteral("Year"));
        QCOMPARE(cellText(*table, 2, 1), QStringLiteral("102"));
        QCOMPARE(cellText(*table, 3, 2), QStringLiteral("203"));
    }

    void headingSpansWhatItsLineSpans()
    {
        PageMaker page = plainTable();
        page.text(240, 184, QStringLiteral("Both"));
        page.rule(195, 188, 330, 188);
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        const Cell *head = cellAt(*table, 0, 1);
        QVERIFY(head);
        QCOMPARE(cellText(*table, 0, 1), QStringLiteral("Both"));
        QCOMPARE(head->columnSpan, 2);
    }

    void linesOfUnruledTablesAreBorders()
    {
        PageMaker page = plainTable();
        page.rule(55, 204, 330, 204);
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QVERIFY(cellAt(*table, 0, 1)->bottom.width > 0);
        QVERIFY(cellAt(*table, 1, 1)->top.width > 0);
        QCOMPARE(cellAt(*table, 1, 1)->bottom.width, 0.0);
    }

    void titleOverTheTableIsText()
    {
        PageMaker page = plainTable();
        page.text(60, 172, QStringLiteral("Table 1."));
        page.text(120, 172, QStringLiteral("The rain in three parts of the"));
        page.text(120, 183, QStringLiteral("country since the year"));
        page.rule(55, 187, 330, 187);
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(cellText(*table, 0, 0), QStringLiteral("Year"));
        QCOMPARE(table->rows(), 4);
        QVERIFY(paragraphTexts(document).constFirst().endsWith(QStringLiteral("since the year")));
    }

    void gapsOfMostRowsAreColumns()
    {
        PageMaker page = plainTable();
        for (int row = 4; row < 10; ++row) {
            page.text(60, 200 + 14 * row, QStringLiteral("Region"));
            page.text(200, 200 + 14 * row, QString::number(100 + row));
            page.text(300, 200 + 14 * row, QString::number(200 + row));
        }
        page.text(60, 340, QStringLiteral("All of the regions together"));
        page.text(205, 340, QStringLiteral("1045"));
        page.text(300, 340, QStringLiteral("2045"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->columns(), 3);
        QCOMPARE(cellText(*table, 10, 2), QStringLiteral("2045"));
    }

    void headingsAboveGroupsSpanTheirColumns()
    {
        PageMaker page = plainTable();
        page.text(226, 186, QStringLiteral("Both years"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(cellText(*table, 0, 1), QStringLiteral("Both years"));
        QCOMPARE(cellAt(*table, 0, 1)->columnSpan, 2);
    }

    void leadersAreNoText()
    {
        PageMaker page;
        for (int row = 0; row < 5; ++row) {
            const double y = 200 + 14 * row;
            page.text(60, y, QStringLiteral("Key ............"));
            page.text(200, y, QString::number(100 + row));
            page.text(300, y, QString::number(200 + row));
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(cellText(*table, 2, 0), QStringLiteral("Key"));
        QCOMPARE(cellText(*table, 2, 2), QStringLiteral("202"));
    }

    void entriesWithLeadersAreNoTable()
    {
        PageMaker page;
        for (int row = 0; row < 5; ++row) {
            page.text(60, 200 + 14 * row, QStringLiteral("%1. Chapter ............ %2").arg(row + 1).arg(10 * row));
        }
        QVERIFY(!firstTable(page.build()));
    }

    void typedLinesAreRules()
    {
        PageMaker page = plainTable();
        page.text(60, 207, QStringLiteral("------------------------------------------------"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 4);
        QVERIFY(cellAt(*table, 0, 1)->bottom.width > 0);
    }

    void rowsSetApartAreWholeRows()
    {
        PageMaker page;
        double y = 200;
        for (int row = 0; row < 5; ++row) {
            page.text(60, y, QStringLiteral("Region"));
            page.text(60, y + 11, QStringLiteral("Number %1").arg(row));
            page.text(200, y + 11, QString::number(100 + row));
            page.text(300, y + 11, QString::number(200 + row));
            y += 28;
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 5);
        QCOMPARE(cellText(*table, 3, 0), QStringLiteral("Region|Number 3"));
        QCOMPARE(cellText(*table, 3, 1), QStringLiteral("103"));
    }

    void crampedNumbersStayInTheirColumns()
    {
        PageMaker page;
        for (int row = 0; row < 6; ++row) {
            const double y = 200 + 14 * row;
            page.text(60, y, QStringLiteral("key"));
            page.text(200, y, QStringLiteral("12,345"));
            page.text(260, y, QStringLiteral("23,456"));
        }
        page.text(60, 284, QStringLiteral("sum"));
        page.text(192, 284, QStringLiteral("1,123,456,789"));
        page.text(258.5, 284, QStringLiteral("9,234,567"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->columns(), 3);
        QCOMPARE(cellText(*table, 6, 1), QStringLiteral("1,123,456,789"));
        QCOMPARE(cellText(*table, 6, 2), QStringLiteral("9,234,567"));
    }

    void columnsTellHowTheirTextsStand()
    {
        PageMaker page;
        const QStringList sums{
            QStringLiteral("7"), QStringLiteral("12,345"), QStringLiteral("999"), QStringLiteral("1,200")};
        for (int row = 0; row < 4; ++row) {
            const double y = 200 + 14 * row;
            page.text(60, y, row % 2 == 0 ? QStringLiteral("key") : QStringLiteral("a long key"));
            page.text(300 - 5.0 * static_cast<double>(sums[row].size()), y, sums[row]);
            page.text(340, y, QString::number(1990 + row));
        }
        page.text(70, 256, QStringLiteral("an indented key that fills its column"));
        page.text(295, 256, QStringLiteral("1"));
        page.text(340, 256, QStringLiteral("1994"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        for (int row = 0; row < 5; ++row) {
            QCOMPARE(cellAt(*table, row, 0)->paragraphs[0].alignment, Alignment::Left);
            QCOMPARE(cellAt(*table, row, 1)->paragraphs[0].alignment, Alignment::Right);
            QCOMPARE(cellAt(*table, row, 2)->paragraphs[0].alignment, Alignment::Right);
        }
    }

    void wrappedCellIsOneRow()
    {
        PageMaker page = plainTable();
        page.text(60, 256, QStringLiteral("West with"));
        page.text(200, 256, QStringLiteral("104"));
        page.text(300, 256, QStringLiteral("204"));
        page.text(60, 268, QStringLiteral("the islands"));
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        const int last = table->rows() - 1;
        QCOMPARE(cellText(*table, last, 0), QStringLiteral("West with the islands"));
        QCOMPARE(cellText(*table, last, 2), QStringLiteral("204"));
    }

    void tableOfWordsHasARowForEachLine()
    {
        PageMaker page;
        const QStringList words{
            QStringLiteral("atlas"), QStringLiteral("chart"), QStringLiteral("curve"), QStringLiteral("torus"),
            QStringLiteral("plane")};
        for (int i = 0; i < words.size(); ++i) {
            page.text(60, 200 + 12 * i, words.at(i));
            page.text(140, 200 + 12 * i, QStringLiteral("Meaning of ") + words.at(i));
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 5);
        QCOMPARE(cellText(*table, 3, 0), QStringLiteral("torus"));
        QCOMPARE(cellText(*table, 3, 1), QStringLiteral("Meaning of torus"));
    }

    void linesAboveTheFirstNumbersAreOneHead()
    {
        PageMaker page;
        const QStringList upper{QStringLiteral("All"), QStringLiteral("First"), QStringLiteral("Second")};
        const QStringList lower{QStringLiteral("places"), QStringLiteral("half"), QStringLiteral("half")};
        for (int column = 0; column < 3; ++column) {
            page.text(60 + 120 * column, 200, upper.at(column));
            page.text(60 + 120 * column, 212, lower.at(column));
            for (int row = 0; row < 4; ++row) {
                page.text(
                    60 + 120 * column, 226 + 14 * row, column == 0 ? QStringLiteral("Town") : QString::number(row));
            }
        }
        const Document document = page.build();
        const Table *table = firstTable(document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 5);
        QCOMPARE(cellText(*table, 0, 1), QStringLiteral("First half"));
        QCOMPARE(cellText(*table, 1, 1), QStringLiteral("0"));
    }
};

QTEST_APPLESS_MAIN(AnalysisUnruledTablesTest)
#include "analysis_unruled_tables_test.moc"
