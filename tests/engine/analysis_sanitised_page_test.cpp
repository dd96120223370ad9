// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/sanitised_page.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace quorra;
using namespace quorra::model;

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
constexpr double farthest = sanitisedPage::limits.maxCoordinate;

RawWord wordAt(const Box &box, double baseline = 100, double size = 10)
{
    RawWord word;
    word.text = QStringLiteral("word");
    word.box = box;
    word.baseline = baseline;
    word.style.size = size;
    return word;
}

RawWord sanitisedWord(const RawWord &word)
{
    RawPage page;
    page.words.push_back(word);
    page = sanitised(std::move(page));
    return page.words.empty() ? RawWord() : page.words.front();
}

std::vector<double> sides(const Box &box)
{
    return {box.left, box.top, box.right, box.bottom};
}

// What the analysis relies on for every box.
bool isValid(const Box &box)
{
    const std::vector<double> all = sides(box);
    return box.left <= box.right && box.top <= box.bottom && std::all_of(all.begin(), all.end(), [](double side) {
               return std::isfinite(side) && std::abs(side) <= farthest;
           });
}

} // namespace

/// Input sanitising: what a file can hold, and what the analysis then relies on.
class AnalysisSanitisedPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsAValidPage()
    {
        PageMaker page;
        page.lines(60, 100, prose(3));
        page.grid({60, 200, 400}, {200, 240, 280});
        page.raw().fills.push_back({{60, 200, 400, 220}, 0xc0c0c0});
        page.raw().pictures.push_back({{60, 300, 160, 380}});
        page.raw().ink.push_back({{200, 300, 260, 360}, true});
        const RawPage &raw = page.raw();
        const RawPage result = sanitised(raw);
        QCOMPARE(result.width, raw.width);
        QCOMPARE(result.height, raw.height);
        QCOMPARE(result.words.size(), raw.words.size());
        for (std::size_t i = 0; i < raw.words.size(); ++i) {
            QCOMPARE(result.words[i].text, raw.words[i].text);
            QCOMPARE(sides(result.words[i].box), sides(raw.words[i].box));
            QCOMPARE(result.words[i].baseline, raw.words[i].baseline);
            QCOMPARE(result.words[i].style.size, raw.words[i].style.size);
        }
        QCOMPARE(result.rules.size(), raw.rules.size());
        for (std::size_t i = 0; i < raw.rules.size(); ++i) {
            QCOMPARE(result.rules[i].length(), raw.rules[i].length());
            QCOMPARE(result.rules[i].width, raw.rules[i].width);
        }
        QCOMPARE(sides(result.fills.front().box), sides(raw.fills.front().box));
        QCOMPARE(sides(result.pictures.front().box), sides(raw.pictures.front().box));
        QCOMPARE(sides(result.ink.front().box), sides(raw.ink.front().box));
        QVERIFY(result.ink.front().frame);
    }

    void givesThePageAnArea_data()
    {
        QTest::addColumn<double>("length");
        QTest::addColumn<double>("expected");
        QTest::newRow("usual") << 595.0 << 595.0;
        QTest::newRow("none") << 0.0 << 1.0;
        QTest::newRow("negative") << -595.0 << 1.0;
        QTest::newRow("not a number") << unknown << 1.0;
        QTest::newRow("infinite") << infinite << farthest;
        QTest::newRow("too large") << 1e9 << farthest;
    }

    void givesThePageAnArea()
    {
        QFETCH(double, length);
        RawPage wide;
        wide.width = length;
        QTEST(sanitised(wide).width, "expected");
        RawPage tall;
        tall.height = length;
        QTEST(sanitised(tall).height, "expected");
    }

    void keepsWordsWhereverTheyAre_data()
    {
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("right");
        QTest::addColumn<double>("baseline");
        QTest::newRow("exchanged sides") << 300.0 << 200.0 << 100.0;
        QTest::newRow("not a number") << unknown << unknown << unknown;
        QTest::newRow("infinite") << -infinite << infinite << infinite;
        QTest::newRow("far away") << 1e12 << 2e12 << -1e12;
    }

    void keepsWordsWhereverTheyAre()
    {
        QFETCH(double, left);
        QFETCH(double, right);
        QFETCH(double, baseline);
        const RawWord word = sanitisedWord(wordAt({left, 90, right, 102}, baseline));
        QCOMPARE(word.text, QStringLiteral("word"));
        QVERIFY(isValid(word.box));
        QVERIFY(std::abs(word.baseline) <= farthest); // false for NaN
    }

    void exchangesTheSidesOfABox()
    {
        const Box box = sanitisedWord(wordAt({300, 102, 200, 90})).box;
        QCOMPARE(sides(box), sides({200, 90, 300, 102}));
    }

    void limitsFontSizes_data()
    {
        QTest::addColumn<double>("size");
        QTest::addColumn<double>("expected");
        QTest::newRow("usual") << 10.0 << 10.0;
        QTest::newRow("none") << 0.0 << 0.01;
        QTest::newRow("negative") << -10.0 << 0.01;
        QTest::newRow("not a number") << unknown << 0.01;
        QTest::newRow("infinite") << infinite << 10000.0;
    }

    void limitsFontSizes()
    {
        QFETCH(double, size);
        QTEST(sanitisedWord(wordAt({0, 0, 10, 10}, 8, size)).style.size, "expected");
    }

    void dropsWordsWithoutText()
    {
        RawPage page;
        for (const QString &text : {QString(), QStringLiteral(" \t"), QString(QChar(0)), QStringLiteral("kept")}) {
            page.words.push_back(wordAt({0, 0, 10, 10}));
            page.words.back().text = text;
        }
        page = sanitised(std::move(page));
        QCOMPARE(page.words.size(), std::size_t(1));
        QCOMPARE(page.words.front().text, QStringLiteral("kept"));
    }

    void dropsRulesThatAreNotStraight()
    {
        RawPage page;
        page.rules = {
            {10, 50, 200, 60, 1, black},           // slanted
            {10, unknown, 200, unknown, 1, black}, // nowhere
            {10, 50, infinite, 50, 1, black},      // endless
            {200, 70, 10, 70, unknown, black},     // kept: from right to left, of unknown width
            {30, 1e9, 30, 10, -2, black},          // kept: reaches off the page, of negative width
        };
        page = sanitised(std::move(page));
        QCOMPARE(page.rules.size(), std::size_t(2));
        QCOMPARE(page.rules[0].x1, 10.0);
        QCOMPARE(page.rules[0].x2, 200.0);
        QVERIFY(page.rules[0].isHorizontal());
        QCOMPARE(page.rules[1].y1, 10.0);
        QCOMPARE(page.rules[1].y2, farthest);
        for (const Rule &rule : page.rules) {
            QVERIFY(rule.width > 0); // false for NaN
        }
    }

    void dropsMarksAtUnknownPlaces()
    {
        const Box nowhere{unknown, 0, 10, 10};
        const Box endless{0, 0, infinite, 10};
        const Box exchanged{1e9, 20, 10, 5};
        RawPage page;
        for (const Box &box : {nowhere, endless, exchanged}) {
            page.fills.push_back({box, black});
            page.pictures.push_back({box});
            page.ink.push_back({box, false});
        }
        page = sanitised(std::move(page));
        QCOMPARE(page.fills.size(), std::size_t(1));
        QCOMPARE(page.pictures.size(), std::size_t(1));
        QCOMPARE(page.ink.size(), std::size_t(1));
        for (const Box &box : {page.fills.front().box, page.pictures.front().box, page.ink.front().box}) {
            QCOMPARE(sides(box), sides({10, 5, farthest, 20}));
        }
    }
};

QTEST_APPLESS_MAIN(AnalysisSanitisedPageTest)
#include "analysis_sanitised_page_test.moc"
