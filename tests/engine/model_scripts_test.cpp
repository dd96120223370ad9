// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/superscripts.h"

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
    made.style.size = size;
    made.rotation = rotation;
    return made;
}

Line line(std::vector<Word> words)
{
    Line made;
    made.words = std::move(words);
    return made;
}

using Scripts = std::vector<Script>;

} // namespace

class ModelScriptsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsSignsBehindText()
    {
        QCOMPARE(
            scriptsOf(line({word(0, 20, 100, 10), word(20, 24, 96, 7), word(24, 28, 102, 7), word(30, 50, 100, 10)})),
            (Scripts{Script::None, Script::Raised, Script::Lowered, Script::None}));
    }

    void findsSignsBeforeText()
    {
        QCOMPARE(
            scriptsOf(line({word(0, 4, 96, 6), word(6, 30, 100, 10), word(33, 60, 100, 10)})),
            (Scripts{Script::Raised, Script::None, Script::None}));
    }

    void findsIndicesOfIndices()
    {
        QCOMPARE(
            scriptsOf(line({word(0, 40, 100, 10), word(40, 44, 102, 7), word(44, 47, 103.5, 5)})),
            (Scripts{Script::None, Script::Lowered, Script::Lowered}));
    }

    void leavesOtherSmallTextAlone()
    {
        const Scripts none{Script::None, Script::None};
        QCOMPARE(scriptsOf(line({word(0, 20, 100, 10), word(21, 40, 100, 7)})), none); // small capitals
        QCOMPARE(scriptsOf(line({word(0, 20, 100, 10), word(20, 40, 96, 9)})), none);  // hardly smaller
        QCOMPARE(scriptsOf(line({word(0, 20, 100, 10), word(60, 70, 96, 7)})), none);  // far from any text
        QCOMPARE(scriptsOf(line({word(0, 20, 100, 10), word(20, 40, 80, 7)})), none);  // another line's
        QCOMPARE(scriptsOf(line({word(0, 20, 100, 10), word(20, 24, 96, 7, 90)})), none);
        QCOMPARE(scriptsOf(line({})), Scripts());
    }
};

QTEST_APPLESS_MAIN(ModelScriptsTest)
#include "model_scripts_test.moc"
