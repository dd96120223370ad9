// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/figures/bar_charts.h"
#include "analysis/figures/drawings.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

bool holds(const Box &outer, const Box &inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

// An arrow that points downwards at (x, bottom).
void addArrow(RawPage &page, double x, double top, double bottom)
{
    page.ink.push_back({{x - 3, bottom - 6, x, bottom}, false});
    page.ink.push_back({{x, bottom - 6, x + 3, bottom}, false});
    page.ink.push_back({{x - 3, top, x + 3, bottom}, false});
}

void addBars(RawPage &page, const std::vector<double> &heights, double distance = 60)
{
    double left = 100;
    for (const double height : heights) {
        page.fills.push_back({{left, 400 - height, left + 40, 400}, 0x3366aa});
        left += distance;
    }
}

} // namespace

class AnalysisDrawingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesBesideArrowsAreWhole()
    {
        PageMaker page;
        page.grid({100, 200}, {100, 140});
        addArrow(page.raw(), 150, 140, 170);
        page.grid({100, 200}, {170, 210});
        const std::vector<Box> drawings = findDrawings(page.raw(), {});
        QCOMPARE(drawings.size(), std::size_t(1));
        QVERIFY(holds(drawings.front(), {100, 100, 200, 210}));
    }

    void rulesFarFromInkAreNoDrawing()
    {
        PageMaker page;
        page.grid({100, 200}, {100, 140});
        addArrow(page.raw(), 400, 600, 640);
        const std::vector<Box> drawings = findDrawings(page.raw(), {});
        QCOMPARE(drawings.size(), std::size_t(0)); // an arrow alone is too small
    }

    void barsOnOneLineAreAChart()
    {
        PageMaker page;
        addBars(page.raw(), {50, 120, 80});
        page.rule(90, 400, 300, 400);
        page.text(105, 412, QStringLiteral("Mon"));
        page.text(165, 412, QStringLiteral("Tue"));
        page.text(225, 412, QStringLiteral("Wed"));
        page.text(90, 440, QStringLiteral("Figure 1: below the chart"));
        const std::vector<Box> drawings = findDrawings(page.raw(), {});
        QCOMPARE(drawings.size(), std::size_t(1));
        QVERIFY(holds(drawings.front(), {90, 280, 300, 412}));
        QVERIFY(drawings.front().bottom < 430);
        const Document document = page.build();
        QCOMPARE(labelTexts(document).join(QLatin1Char('|')), QStringLiteral("Mon Tue Wed"));
        QCOMPARE(paragraphTexts(document).join(QLatin1Char('|')), QStringLiteral("Figure 1: below the chart"));
    }

    void lyingBarsAreAChart()
    {
        RawPage page;
        for (int i = 0; i < 3; ++i) {
            page.fills.push_back({{100, 100.0 + 20 * i, 150.0 + 40 * i, 112.0 + 20 * i}, 0x3366aa});
        }
        QCOMPARE(findBarCharts(page, {}).size(), std::size_t(1));
    }

    void otherFillsAreNoChart()
    {
        RawPage page;
        addBars(page, {50, 50, 50}); // backgrounds of a table's head
        QVERIFY(findBarCharts(page, {}).empty());
        page.fills.clear();
        addBars(page, {50, 120});
        QVERIFY(findBarCharts(page, {}).empty());
        page.fills.clear();
        addBars(page, {50, 120, 80}, 2); // one behind the other
        QVERIFY(findBarCharts(page, {}).empty());
        page.fills.clear();
        addBars(page, {50, 120, 80});
        QVERIFY(findBarCharts(page, {{90, 250, 300, 420}}).empty()); // a table
        QCOMPARE(findBarCharts(page, {}).size(), std::size_t(1));
        QVERIFY(findDrawings(RawPage(), {}).empty());
    }
};

QTEST_APPLESS_MAIN(AnalysisDrawingsTest)
#include "analysis_drawings_test.moc"
