// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/tables/cell_columns.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

WordRefs wordsOf(PageMaker &page)
{
    WordRefs words;
    for (const RawWord &word : page.raw().words) {
        words.push_back(&word);
    }
    return words;
}

// The numbered lines of a form.
void addLines(PageMaker &page, int lines)
{
    for (int i = 0; i < lines; ++i) {
        page.text(150, 100 + 12 * i, QStringLiteral("%1 a line of the form").arg(i + 1));
    }
}

const Box cell{40, 80, 400, 300};

} // namespace

class AnalysisTableCellsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsMarginNotesByThemselves()
    {
        PageMaker page;
        addLines(page, 12);
        for (int i = 0; i < 5; ++i) {
            page.text(50, 106 + 10 * i, QStringLiteral("some note"), 8);
        }
        const std::vector<CellColumn> parts = cellColumns(wordsOf(page), cell);
        QCOMPARE(parts.size(), std::size_t(2));
        QCOMPARE(parts[0].words.size(), std::size_t(10));
        QCOMPARE(parts[1].words.size(), std::size_t(12 * 6));
        QVERIFY(parts[0].box.right < 150 && parts[1].box.left > 80);
        QCOMPARE(parts[1].box.right, cell.right);
    }

    void keepsWhatStandsOnTheSameLines()
    {
        PageMaker page;
        addLines(page, 12);
        for (int i = 0; i < 12; i += 2) {
            page.text(50, 100 + 12 * i, QStringLiteral("a term"));
        }
        QCOMPARE(cellColumns(wordsOf(page), cell).size(), std::size_t(1));
    }

    void keepsShortCells()
    {
        PageMaker page;
        addLines(page, 4);
        for (int i = 0; i < 3; ++i) {
            page.text(50, 106 + 10 * i, QStringLiteral("some note"), 8);
        }
        QCOMPARE(cellColumns(wordsOf(page), cell).size(), std::size_t(1));
        QCOMPARE(cellColumns({}, cell).size(), std::size_t(1));
    }

    void keepsRotatedWords()
    {
        PageMaker page;
        addLines(page, 12);
        for (int i = 0; i < 5; ++i) {
            page.text(50, 106 + 10 * i, QStringLiteral("some note"), 8);
        }
        page.raw().words.back().rotation = 90;
        QCOMPARE(cellColumns(wordsOf(page), cell).size(), std::size_t(1));
    }
};

QTEST_APPLESS_MAIN(AnalysisTableCellsTest)
#include "analysis_table_cells_test.moc"
