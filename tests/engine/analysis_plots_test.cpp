// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/figures/plots.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

// A grid of three columns and two rows, 300 by 100 points.
Table grid()
{
    Table table;
    table.box = {100, 200, 400, 300};
    table.columnEdges = {100, 200, 300, 400};
    table.rowEdges = {200, 250, 300};
    return table;
}

} // namespace

class AnalysisPlotsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsPlotsFromTables_data()
    {
        QTest::addColumn<QList<double>>("box");
        QTest::addColumn<bool>("frame");
        QTest::addColumn<bool>("plot");
        QTest::newRow("a curve over the whole grid") << QList<double>{100, 200, 400, 300} << false << true;
        QTest::newRow("a curve across some lines") << QList<double>{130, 210, 330, 290} << false << true;
        QTest::newRow("a curve that reaches out of the grid") << QList<double>{50, 100, 330, 290} << false << true;
        QTest::newRow("a frame with round corners") << QList<double>{99, 199, 401, 301} << true << false;
        QTest::newRow("a header row with a colour gradient") << QList<double>{100, 200, 400, 250} << true << false;
        QTest::newRow("a shaded shape across lines") << QList<double>{130, 210, 330, 290} << true << true;
        QTest::newRow("a slanted line inside one cell") << QList<double>{100, 200, 200, 250} << false << false;
        QTest::newRow("a small mark on a line") << QList<double>{195, 220, 205, 230} << false << false;
        QTest::newRow("a curve elsewhere") << QList<double>{500, 200, 590, 300} << false << false;
    }

    void tellsPlotsFromTables()
    {
        QFETCH(QList<double>, box);
        QFETCH(bool, frame);
        QTEST(isPlot(grid(), {{{box.at(0), box.at(1), box.at(2), box.at(3)}, frame}}), "plot");
    }

    void addsUpTheMarks()
    {
        const Ink left{{190, 205, 215, 215}, false}; // pieces of a dashed curve, each across a line
        const Ink right{{290, 280, 315, 290}, false};
        QVERIFY(!isPlot(grid(), {left}));
        QVERIFY(isPlot(grid(), {left, right}));
    }

    // A graph on a grid with numbers beside its axes: a picture, no table.
    void keepsAGraphOnAGridInOnePicture()
    {
        PageMaker page;
        page.lines(50, 500, prose(5));
        page.grid({100, 150, 200, 250, 300}, {200, 240, 280, 320});
        for (int i = 0; i < 4; ++i) {
            page.text(102 + 50 * i, 318, QString::number(i));
            page.text(102, 218 + 40 * (i % 3), QString::number(i * 10));
        }
        QVERIFY(firstTable(page.build()));
        for (int i = 0; i < 3; ++i) {
            page.raw().ink.push_back({{100, 205.0 + 5 * i, 300, 315}, false});
        }
        const Document document = page.build();
        QVERIFY(!firstTable(document));
        int pictures = 0;
        for (const Section &section : document.pages.front().sections) {
            for (const Block &block : section.blocks) {
                pictures += block.figure() ? 1 : 0;
            }
        }
        QCOMPARE(pictures, 1);
    }
};

QTEST_GUILESS_MAIN(AnalysisPlotsTest)
#include "analysis_plots_test.moc"
