// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/text_lines/word_fragments.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

// A fragment of a word, the next one following without a space.
RawWord fragment(const QString &text, double left, double width, double baseline, double size)
{
    RawWord word;
    word.text = text;
    word.style.size = size;
    word.baseline = baseline;
    word.box = {left, baseline - 0.8 * size, left + width, baseline + 0.2 * size};
    word.spaceAfter = false;
    word.endsLine = false;
    return word;
}

// A page of these words, in their order.
RawPage pageOf(std::vector<RawWord> words)
{
    RawPage page;
    for (RawWord &word : words) {
        word.index = page.words.size();
        page.words.push_back(std::move(word));
    }
    return page;
}

} // namespace

class AnalysisWordFragmentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsThatAWordContinues_data()
    {
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("baseline");
        QTest::addColumn<bool>("space");
        QTest::addColumn<int>("rotation");
        QTest::addColumn<bool>("continues");
        QTest::newRow("an index behind its letter") << 105.0 << 202.0 << false << 0 << true;
        QTest::newRow("an index of an index") << 106.0 << 207.0 << false << 0 << true;
        QTest::newRow("the upper part of a fraction over the lower") << 100.5 << 192.0 << false << 0 << true;
        QTest::newRow("after a space") << 105.0 << 200.0 << true << 0 << false;
        QTest::newRow("too far to the right") << 109.0 << 200.0 << false << 0 << false;
        QTest::newRow("left of the letter") << 92.0 << 202.0 << false << 0 << false;
        QTest::newRow("two lines down") << 105.0 << 224.0 << false << 0 << false;
        QTest::newRow("rotated") << 105.0 << 200.0 << false << 90 << false;
    }

    void knowsThatAWordContinues()
    {
        QFETCH(double, left);
        QFETCH(double, baseline);
        QFETCH(bool, space);
        QFETCH(int, rotation);
        RawWord letter = fragment(QStringLiteral("g"), 100, 5, 200, 10);
        letter.spaceAfter = space;
        RawWord next = fragment(QStringLiteral("2"), left, 4, baseline, 8);
        next.rotation = rotation;
        QTEST(continuesWord(letter, next), "continues");
    }

    void addsLooseFragmentsToTheirWord()
    {
        const RawPage page = pageOf(
            {fragment(QStringLiteral("x"), 100, 5, 200, 10), fragment(QStringLiteral("i"), 105, 3, 202, 8),
             fragment(QStringLiteral("j"), 108, 3, 204, 6), fragment(QStringLiteral("far"), 300, 15, 200, 10)});
        WordRefs group{&page.words[1]};
        keepFragmentsTogether(page, {&group});
        QCOMPARE(group.size(), std::size_t(3)); // the letter before and the index behind
        QVERIFY(std::find(group.begin(), group.end(), &page.words[3]) == group.end());
    }

    void leavesFragmentsOfTwoGroupsWhereTheyAre()
    {
        const RawPage page = pageOf(
            {fragment(QStringLiteral("left"), 100, 5, 200, 10), fragment(QStringLiteral("right"), 105, 5, 200, 10)});
        WordRefs first{&page.words[0]};
        WordRefs second{&page.words[1]};
        keepFragmentsTogether(page, {&first, &second});
        QCOMPARE(first, (WordRefs{&page.words[0]}));
        QCOMPARE(second, (WordRefs{&page.words[1]}));
    }

    // The letter is above the drawing's edge, its index below it.
    void keepsALabelWholeAtTheEdgeOfADrawing()
    {
        PageMaker page;
        page.lines(50, 600, prose(4));
        for (int i = 0; i < 6; ++i) {
            page.raw().ink.push_back({{200, 301.0 + 10 * i, 320, 321.0 + 10 * i}, false});
        }
        page.raw().words.push_back(fragment(QStringLiteral("g"), 210, 5, 303, 10));
        page.raw().words.push_back(fragment(QStringLiteral("2"), 215, 4, 305, 8));
        page.raw().words.back().spaceAfter = true;
        const Document document = page.build();
        const QString all = (labelTexts(document) + paragraphTexts(document)).join(QLatin1Char('\n'));
        QVERIFY2(all.contains(QStringLiteral("g2")), qPrintable(all));
    }

    void knowsASmallFraction()
    {
        RawWord word = fragment(QStringLiteral("sin"), 100, 15, 200, 10);
        word.spaceAfter = true;
        const RawWord lower = fragment(QStringLiteral("r"), 117, 4, 204, 8);
        const RawWord upper = fragment(QStringLiteral("t"), 117.5, 3, 196, 8);
        QVERIFY(isSmallFraction(word, lower, upper));
        QVERIFY(!isSmallFraction(word, lower, fragment(QStringLiteral("t"), 121, 3, 204, 8)));  // side by side
        QVERIFY(!isSmallFraction(word, fragment(QStringLiteral("r"), 117, 4, 204, 10), upper)); // as large as the text
        QVERIFY(!isSmallFraction(word, fragment(QStringLiteral("r"), 130, 4, 204, 8), upper));  // far away
        word.endsLine = true;
        QVERIFY(!isSmallFraction(word, lower, upper));
    }

    void readsAStackedFractionInItsLine()
    {
        PageMaker page;
        page.lines(50, 600, prose(4));
        const double end = page.text(50, 300, QStringLiteral("The curve is sin"));
        page.raw().words.back().endsLine = false;
        page.raw().words.push_back(fragment(QStringLiteral("r"), end, 4, 304, 8));
        page.raw().words.push_back(fragment(QStringLiteral("t"), end + 0.5, 3, 296, 8));
        page.raw().words.back().spaceAfter = true;
        page.text(end + 8, 300, QStringLiteral("here as everywhere"));
        const QString all = paragraphTexts(page.build()).join(QLatin1Char('\n'));
        QVERIFY2(all.contains(QStringLiteral("The curve is sin rt here as everywhere")), qPrintable(all));
    }
};

QTEST_GUILESS_MAIN(AnalysisWordFragmentsTest)
#include "analysis_word_fragments_test.moc"
