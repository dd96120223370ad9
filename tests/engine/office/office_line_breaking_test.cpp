// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "odf/line_breaking.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// How text falls into lines.
class OfficeLineBreakingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsWithoutSpaceStayTogether();
    void dividedWordsAreWholeAgain();
    void linesTakeWhatFits();
    void indentsCountFromTheirLines();
    void letterSpacingWidensCharactersAndSpaces();
    void longWordsHaveTheirOwnLine();
    void lineBreaksEndLines();
};

namespace {

// Every character and every space is 5 points wide.
const TextMeasure fivePoints{
    [](const model::Word &word) { return 5.0 * static_cast<double>(word.text.size()); },
    [](const model::Style &) { return 5.0; }};

std::vector<UnbreakableText> textsOf(const QString &text)
{
    return unbreakableTexts(fixture::paragraph(text, {0, 0, 500, 12}), fivePoints);
}

} // namespace

void OfficeLineBreakingTest::wordsWithoutSpaceStayTogether()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("one two 3"), {0, 0, 500, 12});
    paragraph.lines[0].words[1].separator = model::Separator::None;
    const std::vector<UnbreakableText> texts = unbreakableTexts(paragraph, fivePoints);
    QCOMPARE(texts.size(), std::size_t(2));
    QCOMPARE(texts[1].width, 20.0); // "two3"
    QCOMPARE(texts[1].characters, 4.0);
    QCOMPARE(texts[1].spaceBefore, 5.0);
}

void OfficeLineBreakingTest::dividedWordsAreWholeAgain()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("a con-"), {0, 0, 500, 12});
    paragraph.lines.push_back(fixture::paragraph(QStringLiteral("verter b"), {0, 12, 500, 24}).lines[0]);
    QCOMPARE(unbreakableTexts(paragraph, fivePoints).size(), std::size_t(4)); // the hyphen is a character
    paragraph.lines[0].words[1].separator = model::Separator::Hyphen;
    QCOMPARE(unbreakableTexts(paragraph, fivePoints).size(), std::size_t(3));
    // Ideographs: text without a space at a line end can be divided there.
    paragraph.lines[0].words[1].separator = model::Separator::None;
    QCOMPARE(unbreakableTexts(paragraph, fivePoints).size(), std::size_t(4));
}

void OfficeLineBreakingTest::linesTakeWhatFits()
{
    const std::vector<UnbreakableText> texts = textsOf(QStringLiteral("aaaa bbbb cccc")); // 20 + 5 + 20 + 5 + 20
    QCOMPARE(countLines(texts, {.width = 70}), 1);
    QCOMPARE(countLines(texts, {.width = 69}), 2);
    QCOMPARE(countLines(texts, {.width = 45}), 2);
    QCOMPARE(countLines(texts, {.width = 44}), 3);
    QCOMPARE(countLines({}, {.width = 44}), 1);
}

void OfficeLineBreakingTest::indentsCountFromTheirLines()
{
    const std::vector<UnbreakableText> texts = textsOf(QStringLiteral("aaaa bbbb cccc"));
    QCOMPARE(countLines(texts, {.width = 70, .firstIndent = 1}), 2);
    QCOMPARE(countLines(texts, {.width = 45, .otherIndent = 1}), 2); // "cccc" alone still fits
    const std::vector<UnbreakableText> four = textsOf(QStringLiteral("aaaa bbbb cccc dddd"));
    QCOMPARE(countLines(four, {.width = 45}), 2);
    QCOMPARE(countLines(four, {.width = 45, .otherIndent = 1}), 3);
}

void OfficeLineBreakingTest::letterSpacingWidensCharactersAndSpaces()
{
    const std::vector<UnbreakableText> texts = textsOf(QStringLiteral("aaaa bbbb")); // 8 characters and a space
    QCOMPARE(countLines(texts, {.width = 54, .letterSpacing = 1}), 1);
    QCOMPARE(countLines(texts, {.width = 53, .letterSpacing = 1}), 2);
    QCOMPARE(countLines(texts, {.width = 36, .letterSpacing = -1}), 1);
}

void OfficeLineBreakingTest::longWordsHaveTheirOwnLine()
{
    const std::vector<UnbreakableText> texts = textsOf(QStringLiteral("a bbbbbbbbbb c"));
    QCOMPARE(countLines(texts, {.width = 20}), 3);
    QCOMPARE(countLines(textsOf(QStringLiteral("bbbbbbbbbb")), {.width = 20}), 1);
}

void OfficeLineBreakingTest::lineBreaksEndLines()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("aa bb cc"), {0, 0, 500, 12});
    paragraph.lines[0].words[0].separator = model::Separator::LineBreak;
    paragraph.lines[0].words[2].separator = model::Separator::LineBreak; // means nothing after the last word
    const std::vector<UnbreakableText> texts = unbreakableTexts(paragraph, fivePoints);
    QCOMPARE(countLines(texts, {.width = 100}), 2);
    QCOMPARE(countLines(texts, {.width = 25, .otherIndent = 1}), 3);
}

QTEST_APPLESS_MAIN(OfficeLineBreakingTest)
#include "office_line_breaking_test.moc"
