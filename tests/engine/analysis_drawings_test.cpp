// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/figures/bar_charts.h"
#include "analysis/figures/drawings.h"
#include "analysis/figures/drawn_signs.h"
#include "analysis/figures/networks.h"

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

    void marksFarApartAreDrawingsOfTheirOwn()
    {
        PageMaker page;
        page.grid({100, 200}, {100, 140}); // an empty frame
        addArrow(page.raw(), 400, 600, 640);
        const std::vector<Box> drawings = findDrawings(page.raw(), {});
        QCOMPARE(drawings.size(), std::size_t(2));
        QVERIFY(holds(drawings[0], {397, 600, 403, 640}));
        QVERIFY(holds(drawings[1], {100, 100, 200, 140}));
    }

    void smallMarksAreKeptUnlessTheyDecorateText()
    {
        PageMaker page;
        page.raw().ink.push_back({{100, 100, 107, 104}, false});
        QCOMPARE(findDrawings(page.raw(), {}).size(), std::size_t(1));
        page.raw().ink[0].box = {100, 100, 105, 104}; // too small
        QVERIFY(findDrawings(page.raw(), {}).empty());
        page.raw().ink[0].box = {100, 100, 160, 120};
        page.text(110, 114, QStringLiteral("ringed"));
        QVERIFY(findDrawings(page.raw(), {}).empty());
    }

    void framesJoinedByLinesAreANetwork()
    {
        PageMaker page;
        page.grid({100, 200}, {100, 120, 150}); // two compartments
        page.grid({300, 400}, {100, 150});
        QVERIFY(findNetworks(page.raw()).empty());
        page.rule(200, 130, 300, 130);
        const std::vector<Box> networks = findNetworks(page.raw());
        QCOMPARE(networks.size(), std::size_t(1));
        QCOMPARE(networks.front(), (Box{100, 100, 400, 150}));
    }

    void tablesAreNoNetworks()
    {
        PageMaker page;
        page.grid({100, 200, 300}, {100, 120, 140});
        QVERIFY(findNetworks(page.raw()).empty());
        PageMaker open; // two framed columns and the lines of the rows between them
        open.grid({100, 200}, {100, 160});
        open.grid({300, 400}, {100, 160});
        open.rule(200, 120, 300, 120);
        open.rule(200, 140, 300, 140);
        QVERIFY(findNetworks(open.raw()).empty());
        PageMaker corners; // a row with an open cell
        corners.grid({100, 200}, {100, 120});
        corners.grid({300, 400}, {100, 120});
        corners.rule(200, 100, 300, 100);
        QVERIFY(findNetworks(corners.raw()).empty());
    }

    void squaresBesideTextAreCheckBoxes()
    {
        PageMaker page;
        page.grid({100, 108}, {92, 100});
        page.text(114, 100, QStringLiteral("Empty"));
        page.grid({100, 108}, {112, 120});
        page.text(102, 119, QStringLiteral("x"), 7);
        page.text(114, 120, QStringLiteral("Crossed"));
        page.grid({100, 110, 120}, {132, 142}); // boxes for letters
        page.text(126, 140, QStringLiteral("Code"));
        const RawPage found = withDrawnSigns(page.raw());
        QStringList words;
        for (const RawWord &word : found.words) {
            words += word.text;
        }
        QCOMPARE(words.join(QLatin1Char(' ')), QStringLiteral("☐ Empty ☒ Crossed Code"));
        QCOMPARE(found.rules.size(), std::size_t(5));
    }

    void dotsBeforeLinesAreBullets()
    {
        PageMaker page;
        page.raw().ink.push_back({{100, 94, 104, 98}, false});
        page.text(110, 100, QStringLiteral("one"));
        QCOMPARE(withDrawnSigns(page.raw()).words.size(), std::size_t(1)); // a dot alone is no list
        page.raw().ink.push_back({{100, 110, 104, 114}, false});
        page.text(110, 116, QStringLiteral("two"));
        const RawPage found = withDrawnSigns(page.raw());
        QCOMPARE(found.words.size(), std::size_t(4));
        QCOMPARE(found.words[0].text, QStringLiteral("•"));
        QVERIFY(found.ink.empty());
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
