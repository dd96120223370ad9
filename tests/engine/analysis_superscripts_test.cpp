// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/text_lines/superscripts.h"
#include "test_text.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

Word word(double left, double right, double baseline, double size, int rotation = 0)
{
    Word made;
    made.text = QStringLiteral("word");
    made.box = {left, baseline - 0.8 * size, right, baseline + 0.2 * size};
    made.baseline = baseline;
    Style style;
    style.size = size;
    made.style = testText::styled(style);
    made.rotation = rotation;
    return made;
}

Line line(std::vector<Word> words)
{
    Line made;
    made.words = std::move(words);
    return made;
}

using Shifts = std::vector<BaselineShift>;

Shifts shiftsOf(Line line, std::size_t first = 0)
{
    markSuperscripts(line, first);
    Shifts shifts;
    for (const Word &marked : line.words) {
        shifts.push_back(marked.shift);
    }
    return shifts;
}

} // namespace

class AnalysisSuperscriptsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsMarksAfterText()
    {
        QCOMPARE(
            shiftsOf(line({word(0, 20, 100, 10), word(20, 24, 96, 7), word(24, 28, 102, 7), word(30, 50, 100, 10)})),
            (Shifts{BaselineShift::None, BaselineShift::Superscript, BaselineShift::Subscript, BaselineShift::None}));
    }

    void findsMarksBeforeText()
    {
        QCOMPARE(
            shiftsOf(line({word(0, 4, 96, 6), word(6, 30, 100, 10), word(33, 60, 100, 10)})),
            (Shifts{BaselineShift::Superscript, BaselineShift::None, BaselineShift::None}));
    }

    void findsSubscriptsOfSubscripts()
    {
        QCOMPARE(
            shiftsOf(line({word(0, 40, 100, 10), word(40, 44, 102, 7), word(44, 47, 103.5, 5)})),
            (Shifts{BaselineShift::None, BaselineShift::Subscript, BaselineShift::Subscript}));
    }

    void leavesAListMarkOut()
    {
        const Line marked = line({word(0, 4, 96, 6), word(6, 30, 100, 10), word(30, 34, 96, 7)});
        QCOMPARE(
            shiftsOf(marked), (Shifts{BaselineShift::Superscript, BaselineShift::None, BaselineShift::Superscript}));
        QCOMPARE(shiftsOf(marked, 1), (Shifts{BaselineShift::None, BaselineShift::None, BaselineShift::Superscript}));
        // A large bullet would be the main text, and the text beside it small and lowered.
        const Line bullet = line({word(0, 20, 96, 20), word(22, 40, 100, 10), word(40, 44, 96, 7)});
        QCOMPARE(shiftsOf(bullet, 1), (Shifts{BaselineShift::None, BaselineShift::None, BaselineShift::Superscript}));
        QVERIFY(shiftsOf(bullet) != shiftsOf(bullet, 1));
        // One word after the mark has nothing to be beside.
        const Line single = line({word(0, 20, 100, 10), word(20, 24, 96, 7)});
        QCOMPARE(shiftsOf(single, 1), (Shifts{BaselineShift::None, BaselineShift::None}));
        QCOMPARE(shiftsOf(single, 5), (Shifts{BaselineShift::None, BaselineShift::None}));
    }

    void leavesOtherSmallTextAlone()
    {
        const Shifts none{BaselineShift::None, BaselineShift::None};
        QCOMPARE(shiftsOf(line({word(0, 20, 100, 10), word(21, 40, 100, 7)})), none); // small capitals
        QCOMPARE(shiftsOf(line({word(0, 20, 100, 10), word(20, 40, 96, 9)})), none);  // hardly smaller
        QCOMPARE(shiftsOf(line({word(0, 20, 100, 10), word(60, 70, 96, 7)})), none);  // far from any text
        QCOMPARE(shiftsOf(line({word(0, 20, 100, 10), word(20, 40, 80, 7)})), none);  // another line's
        QCOMPARE(shiftsOf(line({word(0, 20, 100, 10), word(20, 24, 96, 7, 90)})), none);
        QCOMPARE(shiftsOf(line({})), Shifts());
    }
};

QTEST_APPLESS_MAIN(AnalysisSuperscriptsTest)
#include "analysis_superscripts_test.moc"
