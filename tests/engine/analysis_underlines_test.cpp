// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "threshold_edges.h"

#include "analysis/text_lines/text_lines.h"
#include "analysis/text_lines/underlines.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

constexpr double em = 10;

struct Found
{
    bool underlined = false;
    bool struckThrough = false;
    bool asRule = false; ///< the line is still there
};

// Two words from 100 to 150 and from 153 to 200 with the baseline at 100, and a line.
Found found(double left, double right, double y, double width = 0.5, const QString &text = QStringLiteral("words"))
{
    RawPage page;
    page.words = {word(text, 100, 50, 100, em), word(text, 153, 47, 100, em)};
    page.rules = {{left, y, right, y, width, black}};
    underlineWords(page);
    const Style &style = page.words.front().style;
    return {style.underlined, style.struckThrough, !page.rules.empty()};
}

std::vector<Edge> edges()
{
    using underlines::thresholds;
    return {
        maximum(
            "distance below the baseline", thresholds.maxDrop,
            [](double drop) { return found(100, 200, 100 + drop * em).underlined; }),
        minimum(
            "distance above the baseline", thresholds.minRise,
            [](double rise) { return found(100, 200, 100 - rise * em).struckThrough; }),
        maximum(
            "largest distance above the baseline", thresholds.maxRise,
            [](double rise) { return found(100, 200, 100 - rise * em).struckThrough; }),
        minimum(
            "part of a word", thresholds.minCovered,
            [](double share) { return found(100, 100 + 50 * share, 101).underlined; }),
        maximum(
            "overhang", thresholds.maxOverhang,
            [](double overhang) { return found(100, 200 + overhang * em, 101).underlined; }),
        maximum(
            "thickness", thresholds.maxWidth, [](double width) { return found(100, 200, 101, width * em).underlined; }),
        maximum(
            "gap between words", thresholds.maxWordGap,
            [](double gap) {
                RawPage page;
                page.words = {
                    word(QStringLiteral("words"), 100, 50, 100, em),
                    word(QStringLiteral("words"), 150 + gap * em, 50, 100, em)};
                page.rules = {{100, 101, 200 + gap * em, 101, 0.5, black}};
                underlineWords(page);
                return page.words.front().style.underlined;
            }),
        minimum(
            "text below a line", thresholds.minGapBelow,
            [](double gap) {
                RawPage page;
                const double below = 101 + (gap + textLines::thresholds.capHeight) * em;
                page.words = {
                    word(QStringLiteral("words"), 100, 50, 100, em), word(QStringLiteral("n"), 120, 5, below, em)};
                page.rules = {{100, 101, 150, 101, 0.5, black}};
                underlineWords(page);
                return page.words.front().style.underlined;
            }),
        maximum(
            "gap between pieces", thresholds.maxPieceGap,
            [](double gap) {
                RawPage page;
                page.words = {word(QStringLiteral("words"), 100, 50, 100, em)};
                page.rules = {{100, 101, 125, 101, 0.5, black}, {125 + gap, 101, 150, 101, 0.5, black}};
                underlineWords(page);
                return page.words.front().style.underlined;
            }),
    };
}

} // namespace

class AnalysisUnderlinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholds_data() { addRows(edges()); }
    void thresholds() { checkRow(edges()); }

    void linesOfWordsAreNoRules()
    {
        const Found below = found(100, 200, 101);
        QVERIFY(below.underlined && !below.struckThrough && !below.asRule);
        const Found through = found(100, 200, 97);
        QVERIFY(!through.underlined && through.struckThrough && !through.asRule);
        const Found farther = found(80, 220, 101);
        QVERIFY(!farther.underlined && !farther.struckThrough && farther.asRule);
    }

    void linesUnderNumbersAreThoseOfSums()
    {
        QVERIFY(!found(100, 200, 101, 0.5, QStringLiteral("1,234")).underlined);
        QVERIFY(found(100, 200, 101, 0.5, QStringLiteral("no. 12")).underlined);
    }

    void linesOfGridsAreBorders()
    {
        RawPage page;
        page.words = {word(QStringLiteral("words"), 100, 50, 100, em)};
        page.rules = {{100, 101, 150, 101, 0.5, black}, {150, 80, 150, 101, 0.5, black}};
        underlineWords(page);
        QVERIFY(!page.words.front().style.underlined);
        QCOMPARE(page.rules.size(), std::size_t(2));
    }

    void otherWordsKeepTheirStyle()
    {
        RawPage page;
        page.words = {
            word(QStringLiteral("first"), 100, 50, 100, em), word(QStringLiteral("second"), 153, 47, 100, em),
            word(QStringLiteral("below"), 100, 50, 112, em)};
        page.rules = {{100, 101, 150, 101, 0.5, black}};
        underlineWords(page);
        QVERIFY(page.words[0].style.underlined);
        QVERIFY(!page.words[1].style.underlined);
        QVERIFY(!page.words[2].style.underlined);
    }
};

QTEST_APPLESS_MAIN(AnalysisUnderlinesTest)
#include "analysis_underlines_test.moc"
