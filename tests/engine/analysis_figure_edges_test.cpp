// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "threshold_edges.h"

#include "analysis/figures/bar_charts.h"
#include "analysis/figures/drawings.h"
#include "analysis/figures/drawn_signs.h"
#include "analysis/figures/figures.h"
#include "analysis/figures/formulas.h"
#include "analysis/figures/networks.h"
#include "analysis/figures/plots.h"
#include "analysis/figures/rectangles.h"

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

constexpr double em = 10; // the font size of all text unless a test says otherwise
constexpr double pageWidth = 600;
constexpr double pageHeight = 800;
constexpr QLatin1String text("words");

RawPage emptyPage()
{
    RawPage page;
    page.width = pageWidth;
    page.height = pageHeight;
    return page;
}

void addFrame(RawPage &page, const Box &box)
{
    page.rules.push_back({box.left, box.top, box.right, box.top});
    page.rules.push_back({box.left, box.bottom, box.right, box.bottom});
    page.rules.push_back({box.left, box.top, box.left, box.bottom});
    page.rules.push_back({box.right, box.top, box.right, box.bottom});
}

void addWordsIn(RawPage &page, const Box &box, double count)
{
    for (int i = 0; i < static_cast<int>(count); ++i) {
        page.words.push_back(word(text, box.centreX() - 1, 2, box.centreY()));
    }
}

// ---- drawn signs

bool hasSign(const RawPage &page)
{
    return withDrawnSigns(page).words.size() > page.words.size();
}

// A box that is drawn with lines, and text after it.
RawPage checkBox(double width, double height, double gap = 5)
{
    RawPage page = emptyPage();
    addFrame(page, {50, 96 - height / 2, 50 + width, 96 + height / 2});
    page.words.push_back(word(text, 50 + width + gap, 40, 100));
    return page;
}

struct Dots
{
    double size = 4;
    double gap = 5; ///< points from the dot to its text
    double fontSize = 10;
    double shift = 0; ///< points by which the second dot is farther right
    double more = 0;  ///< dots elsewhere
};

// Two lines of text after dots.
RawPage bullets(const Dots &dots)
{
    RawPage page = emptyPage();
    for (int line = 0; line < 2; ++line) {
        const double baseline = 100 + 30 * line;
        const double middle = baseline - 0.3 * dots.fontSize;
        const double left = 50 + line * dots.shift;
        page.ink.push_back({{left, middle - dots.size / 2, left + dots.size, middle + dots.size / 2}, false});
        page.words.push_back(word(text, left + dots.size + dots.gap, 40, baseline, dots.fontSize));
    }
    for (int i = 0; i < static_cast<int>(dots.more); ++i) {
        page.ink.push_back({{400, 300.0 + i, 404, 304.0 + i}, false});
    }
    return page;
}

std::vector<Edge> signEdges()
{
    return {
        minimum("side of a check box", 4.5, [](double side) { return hasSign(checkBox(side, side)); }),
        maximum("side of a larger check box", 16, [](double side) { return hasSign(checkBox(side, side)); }),
        maximum("sides of a check box", 1.3, [](double ratio) { return hasSign(checkBox(10, ratio * 10)); }),
        minimum(
            "gap between a check box and a line", 0.8,
            [](double gap) {
                RawPage page = checkBox(10, 10, 30);
                page.rules.push_back({60 + gap, 96, 75, 96});
                return hasSign(page);
            }),
        maximum("gap after a check box", 3, [](double gap) { return hasSign(checkBox(10, 10, gap * em)); }),
        maximum(
            "tick that is larger than its box", 1.6,
            [](double ratio) {
                RawPage page = checkBox(10, 10);
                page.ink.push_back({{55 - ratio * 5, 93, 55 + ratio * 5, 99}, false});
                return withDrawnSigns(page).words.front().text.front() == QChar(0x2612);
            }),
        minimum("size of a bullet", 1.2, [](double size) { return hasSign(bullets({size})); }),
        maximum(
            "size of a larger bullet", 7,
            [](double size) {
                return hasSign(bullets({size, 5, 20}));
            }),
        maximum(
            "bullet beside smaller text", 0.75,
            [](double share) {
                return hasSign(bullets({share * 8, 5, 8}));
            }),
        maximum(
            "gap after a bullet", 3.5,
            [](double gap) {
                return hasSign(bullets({4, gap * em}));
            }),
        minimum(
            "gap before a bullet", 1.5,
            [](double gap) {
                RawPage page = bullets({});
                page.words.push_back(word(text, 10, 40 - gap * em, 100)); // before the first one
                page.words.push_back(word(text, 10, 20, 130));
                return hasSign(page);
            }),
        maximum(
            "bullets below one another", 1,
            [](double shift) {
                return hasSign(bullets({4, 5, 10, shift}));
            }),
        most(
            "dots of a page", 400,
            [](double count) {
                return hasSign(bullets({4, 5, 10, 0, count - 2}));
            }),
    };
}

// ---- rectangles and networks

std::vector<Edge> rectangleEdges()
{
    return {
        minimum(
            "side of a rectangle", rectangles::thresholds.minSide,
            [](double side) {
                RawPage page = emptyPage();
                addFrame(page, {100, 100, 150, 100 + side});
                return !drawnRectangles(page.rules).empty();
            }),
        most(
            "lines among which rectangles are found", rectangles::thresholds.maxRules,
            [](double count) {
                RawPage page = emptyPage();
                addFrame(page, {100, 100, 150, 150});
                page.rules.resize(static_cast<std::size_t>(count), {300, 300, 310, 300});
                return !drawnRectangles(page.rules).empty();
            }),
    };
}

constexpr Box upperFrame{100, 100, 160, 130};

// Two frames that a line from the first one's lower side joins.
RawPage network(const Box &lowerFrame, double x = 130, double lineEnd = 200)
{
    RawPage page = emptyPage();
    addFrame(page, upperFrame);
    addFrame(page, lowerFrame);
    page.rules.push_back({x, upperFrame.bottom, x, lineEnd});
    return page;
}

bool isNetwork(const RawPage &page)
{
    return !findNetworks(page).empty();
}

std::vector<Edge> networkEdges()
{
    constexpr Box lowerFrame{100, 200, 160, 230};
    return {
        minimum(
            "gap between frames", 1.5,
            [](double gap) { // a line joins the frames at their right sides
                RawPage page = emptyPage();
                addFrame(page, upperFrame);
                addFrame(page, {100, 130 + gap, 160, 170});
                page.rules.push_back({160, 115, 200, 115});
                page.rules.push_back({200, 115, 200, 150});
                page.rules.push_back({160, 150, 210, 150});
                return isNetwork(page);
            }),
        maximum(
            "gap between a line and its frame", 4,
            [=](double gap) { return isNetwork(network(lowerFrame, 130, lowerFrame.top - gap)); }),
        minimum(
            "distance of a line from the corner", 3,
            [=](double distance) { return isNetwork(network(lowerFrame, 100 + distance)); }),
        maximum(
            "line that reaches into a frame", 2,
            [=](double length) { return isNetwork(network(lowerFrame, 130, lowerFrame.top + length)); }),
        minimum(
            "height of a frame", 12,
            [](double height) {
                return isNetwork(network({100, 200, 160, 200 + height}));
            }),
        maximum(
            "height of a large frame", 0.6,
            [](double share) {
                return isNetwork(network({100, 200, 160, 200 + share * pageHeight}));
            }),
        most(
            "words in a frame", 80,
            [=](double count) {
                RawPage page = network(lowerFrame);
                addWordsIn(page, lowerFrame, count);
                return isNetwork(page);
            }),
        most(
            "lines of a page with a network", 1500,
            [=](double count) {
                RawPage page = network(lowerFrame);
                page.ink.resize(static_cast<std::size_t>(count) - page.rules.size(), {{400, 400, 410, 410}, false});
                return isNetwork(page);
            }),
    };
}

// ---- bar charts

struct Bars
{
    double count = 3;
    double thickness = 10;
    double moreThickness = 0; ///< of the last one
    double rise = 0;          ///< of the foot of the last one
    double longest = 80;      ///< points; the others are 50 long
};

RawPage barChart(const Bars &bars)
{
    RawPage page = emptyPage();
    for (int i = 0; i < static_cast<int>(bars.count); ++i) {
        const bool last = i + 1 == static_cast<int>(bars.count);
        const double left = 100 + 40 * i;
        const double foot = 200 - (last ? bars.rise : 0);
        const double length = last ? bars.longest : 50;
        const double width = bars.thickness + (last ? bars.moreThickness : 0);
        page.fills.push_back({{left, foot - length, left + width, foot}, black});
    }
    return page;
}

bool isBarChart(const RawPage &page)
{
    return !findBarCharts(page, {}).empty();
}

// Whether the labels of the first two bars belong to the chart.
bool hasLabels(double distance, double gap)
{
    RawPage page = barChart({});
    const double baseline = 200 + distance * em;
    page.words.push_back(word(text, 100, 20, baseline));
    page.words.push_back(word(text, 120 + gap * em, 20, baseline));
    return findBarCharts(page, {}).front().bottom > 200;
}

std::vector<Edge> barChartEdges()
{
    return {
        minimum(
            "thickness of a bar", 3,
            [](double width) {
                return isBarChart(barChart({3, width}));
            }),
        maximum(
            "bars of one thickness", 1,
            [](double more) {
                return isBarChart(barChart({3, 10, more}));
            }),
        maximum(
            "feet of bars on one line", 1,
            [](double rise) {
                return isBarChart(barChart({3, 10, 0, rise}));
            }),
        fewest("bars", 3, [](double count) { return isBarChart(barChart({count})); }),
        minimum( // and a point more
            "lengths of bars", 1.1 + 1.0 / 50,
            [](double ratio) {
                return isBarChart(barChart({3, 10, 0, 0, ratio * 50}));
            }),
        most(
            "words in a bar", 2,
            [](double count) {
                RawPage page = barChart({});
                addWordsIn(page, page.fills.front().box, count);
                return isBarChart(page);
            }),
        maximum("distance of labels from bars", 1.5, [](double distance) { return hasLabels(distance, 2); }),
        minimum("gap between the labels of bars", 1, [](double gap) { return hasLabels(1.2, gap); }),
    };
}

// ---- formulas

struct Fraction
{
    double length = 40;  ///< of the bar
    double width = 20;   ///< of what is above and below it
    double above = 0.3;  ///< em from the baseline above to the bar
    double below = 0.3;  ///< em from the bar to the text below
    double gap = 0.5;    ///< em from what is before the bar
    double overhang = 0; ///< points by which what is above begins before the bar
};

RawPage fraction(const Fraction &parts)
{
    RawPage page = emptyPage();
    page.rules.push_back({100, 200, 100 + parts.length, 200});
    page.words.push_back(word(QStringLiteral("a"), 100 - parts.overhang, parts.width, 200 - parts.above * em));
    page.words.push_back(
        word(QStringLiteral("b"), 100, parts.width, 200 + (parts.below + textLines::thresholds.capHeight) * em));
    page.words.push_back(word(QStringLiteral("="), 94 - parts.gap * em, 6, 203));
    return page;
}

// A sum of 20 points with a limit below it.
RawPage sum(double distance, double size)
{
    RawPage page = emptyPage();
    page.words.push_back(word(QString(QChar(0x2211)), 100, 20, 200, 20));
    const double top = bodyOf(page.words.front()).bottom + distance * 20;
    RawWord limit = word(QStringLiteral("n"), 105, 10, 0, size);
    limit.baseline = top - bodyOf(limit).top;
    limit.box = {105, limit.baseline - 0.8 * size, 115, limit.baseline + 0.2 * size};
    page.words.push_back(limit);
    return page;
}

bool isFormula(const RawPage &page)
{
    return !findFormulas(page).empty();
}

// A fraction with words of letters on its row.
RawPage fractionInText(int words, int letters)
{
    RawPage page = fraction({});
    for (int i = 0; i < words; ++i) {
        page.words.push_back(word(QString(letters, QLatin1Char('a')), 145 + 30 * i, 25, 203));
    }
    return page;
}

std::vector<Edge> formulaEdges()
{
    return {
        minimum(
            "bar of a fraction", 4,
            [](double length) {
                return isFormula(fraction({length, 3}));
            }),
        maximum(
            "long bar of a fraction", 0.5,
            [](double share) {
                return isFormula(fraction({share * pageWidth, 200}));
            }),
        maximum(
            "numerator above a bar", 0.9,
            [](double distance) {
                return isFormula(fraction({40, 20, distance}));
            }),
        maximum(
            "denominator below a bar", 0.9,
            [](double distance) {
                return isFormula(fraction({40, 20, 0.3, distance}));
            }),
        maximum(
            "numerator that is wider than its bar", 3,
            [](double overhang) {
                return isFormula(fraction({40, 20, 0.3, 0.3, 1, overhang}));
            }),
        minimum(
            "numerator under a long bar", 0.35,
            [](double share) {
                return isFormula(fraction({40, share * 40}));
            }),
        maximum(
            "gap before a bar", 1.5,
            [](double gap) {
                return isFormula(fraction({40, 20, 0.3, 0.3, gap}));
            }),
        maximum("limit below a sum", 0.8, [](double distance) { return isFormula(sum(distance, 10)); }),
        maximum("size of a limit", 0.85, [](double ratio) { return isFormula(sum(0.1, ratio * 20)); }),
        maximum(
            "gap inside a formula", 1.3,
            [](double gap) {
                RawPage page = fraction({});
                page.words.push_back(word(QStringLiteral("+"), 120 + gap * em, 10, 203));
                return findFormulas(page).front().right > 125 + gap * em;
            }),
        most("words beside a formula", 2, [](double count) { return isFormula(fractionInText(int(count), 3)); }),
        most("letters of variables", 2, [](double letters) { return isFormula(fractionInText(3, int(letters))); }),
        most(
            "lines that may be bars of fractions", 200,
            [](double count) {
                RawPage page = fraction({});
                page.rules.insert(page.rules.begin(), static_cast<std::size_t>(count) - 1, Rule{300, 500, 350, 500});
                return isFormula(page);
            }),
    };
}

// ---- drawings

void addInk(RawPage &page, const Box &box, double count = 1)
{
    for (int i = 0; i < static_cast<int>(count); ++i) {
        page.ink.push_back({box, false});
    }
}

std::size_t drawingCount(const RawPage &page)
{
    return findDrawings(page, {}).size();
}

bool isDrawing(const Box &box, double marks = 1, double words = 0)
{
    RawPage page = emptyPage();
    addInk(page, box, marks);
    addWordsIn(page, box, words);
    return drawingCount(page) > 0;
}

bool isOneDrawing(const Box &a, const Box &b)
{
    RawPage page = emptyPage();
    addInk(page, a);
    addInk(page, b);
    return drawingCount(page) == 1;
}

// Whether marks inside a frame with words form one drawing with it. The frame is 200 points wide and high.
bool isDrawingWithFrame(double side, double words)
{
    RawPage page = emptyPage();
    const Box frame{100, 100, 300, 300};
    addFrame(page, frame);
    addInk(page, {101, 101, 101 + side, 101 + side}, 3);
    addWordsIn(page, {250, 250, 290, 290}, words);
    const std::vector<Box> drawings = findDrawings(page, {});
    return drawings.size() == 1 && drawings.front().width() > 190;
}

std::vector<Edge> drawingEdges()
{
    constexpr Box mark{100, 100, 120, 120};
    return {
        maximum(
            "gap between marks", 9,
            [=](double gap) {
                return isOneDrawing(mark, {100, 120 + gap, 120, 150});
            }),
        minimum(
            "side of a drawing with words", 28,
            [](double side) {
                return isDrawing({100, 100, 200, 100 + side}, 3, 1);
            }),
        fewest(
            "marks of a drawing with words", 3,
            [](double count) {
                return isDrawing({100, 100, 200, 200}, count, 1);
            }),
        minimum(
            "length of a mark", 6,
            [](double length) {
                return isDrawing({100, 100, 100 + length, 104});
            }),
        minimum(
            "thickness of a mark", 3,
            [](double width) {
                return isDrawing({100, 100, 130, 100 + width});
            }),
        maximum(
            "mark that is nearly the page", 0.8,
            [](double share) {
                return isDrawing({0, 0, pageWidth, share * pageHeight}, 3, 1);
            }),
        maximum(
            "line of a drawing", 0.6,
            [](double share) {
                RawPage page = emptyPage();
                addInk(page, {100, 100, 140, 140});
                page.rules.push_back({145, 100, 145, 100 + share * pageHeight});
                return findDrawings(page, {}).front().height() > 100;
            }),
        most("words in a frame with marks", 30, [](double count) { return isDrawingWithFrame(40, count); }),
        minimum(
            "marks in a frame with text", 0.25,
            [](double share) { return isDrawingWithFrame(std::sqrt(share) * 200, 40); }),
        maximum(
            "heights of letters", 2.2,
            [=](double ratio) {
                return isOneDrawing(mark, {132, 120 - 20 * ratio, 150, 120});
            }),
        maximum(
            "height of a letter", 72,
            [](double height) {
                return isOneDrawing({100, 100, 120, 100 + height}, {140, 100, 160, 100 + height});
            }),
        minimum(
            "letters on one line", 0.5,
            [=](double share) {
                return isOneDrawing(mark, {132, 120 - 20 * share, 150, 140 - 20 * share});
            }),
        maximum(
            "gap between letters", 0.8,
            [=](double gap) {
                return isOneDrawing(mark, {120 + 20 * gap, 100, 150, 120});
            }),
        minimum(
            "height of an empty frame", 6,
            [](double height) {
                RawPage page = emptyPage();
                addFrame(page, {100, 100, 160, 100 + height});
                return drawingCount(page) > 0;
            }),
        minimum(
            "curve over the lines of a grid", 0.1,
            [](double share) {
                Table grid;
                grid.box = {0, 0, 200, 100};
                grid.columnEdges = {0, 100, 200};
                grid.rowEdges = {0, 100};
                return isPlot(grid, {{{50, 5, 150, 5 + share * 200}, false}});
            }),
    };
}

// ---- labels of figures

// The words among the labels of a drawing that is 102 points wide and begins at 99.
std::size_t labelCount(std::vector<RawWord> words)
{
    RawPage page = emptyPage();
    addInk(page, {100, 100, 200, 200}, 3);
    page.words = std::move(words);
    WordRefs all = refs(page.words);
    return findFigures(page, {}, {}, all).placed.front().words.size();
}

std::vector<Edge> labelEdges()
{
    return {
        minimum(
            "label inside a drawing", figures::thresholds.minLabelInside,
            [](double share) { return labelCount({word(text, 201 - share * 100, 100, 150)}) == 1; }),
        maximum(
            "gap inside a label", figures::thresholds.maxLabelGap,
            [](double gap) {
                return labelCount({word(text, 181, 20, 150), word(text, 201 + gap * em, 100, 150)}) == 0;
            }),
        minimum(
            "mark that no figure shows", 6,
            [](double length) {
                PageMaker page;
                page.lines(100, 300, prose(3));
                page.raw().ink.push_back({{100, 100, 100 + length, 102}, false});
                return page.build().pages.front().background.has_value();
            }),
    };
}

} // namespace

/// The thresholds for what becomes a picture.
class AnalysisFigureEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholdsDecide_data() { addRows(m_edges); }
    void thresholdsDecide() { checkRow(m_edges); }

private:
    std::vector<Edge> m_edges = joined(
        {signEdges(), rectangleEdges(), networkEdges(), barChartEdges(), formulaEdges(), drawingEdges(), labelEdges()});
};

QTEST_APPLESS_MAIN(AnalysisFigureEdgesTest)
#include "analysis_figure_edges_test.moc"
