// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/list_plan.h"

#include <QTest>

using namespace quorra;
using model::NumberFormat;

/// Marks of list items, and how their lists are counted.
class DocumentListsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsNumbers_data();
    void readsNumbers();
    void leavesOtherMarks();
    void choosesLettersOrRomanNumbers();
    void continuesTheListWithTheNumberBefore();
    void beginsInnerListsAgain();
};

namespace {

model::Document items(const std::vector<std::pair<const char *, int>> &marks)
{
    model::Document document;
    model::Page page;
    page.sections.push_back({{{0, 0, 600, 800}}, {}});
    for (const auto &[mark, level] : marks) {
        model::Paragraph paragraph;
        if (*mark) {
            paragraph.listItem = model::ListItem{QString::fromLatin1(mark), *mark != '*', level};
        }
        page.sections[0].blocks.push_back({paragraph, 0});
    }
    document.pages.push_back(std::move(page));
    return document;
}

const model::ListPlace *placeAt(const model::ListPlan &plan, const model::Document &document, std::size_t index)
{
    return plan.find(document.pages[0].sections[0].blocks[index].paragraph());
}

} // namespace

void DocumentListsTest::readsNumbers_data()
{
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *mark, const char *before, NumberFormat format, int value, const char *after) {
        QTest::newRow(mark) << QString::fromLatin1(mark) << QString::fromLatin1(before) << static_cast<int>(format)
                            << value << QString::fromLatin1(after);
    };
    row("1.", "", NumberFormat::Decimal, 1, ".");
    row("(a)", "(", NumberFormat::LowerLetter, 1, ")");
    row("iv)", "", NumberFormat::LowerRoman, 4, ")");
    row("XIV.", "", NumberFormat::UpperRoman, 14, ".");
    row("2.10", "2.", NumberFormat::Decimal, 10, "");
    row("A.6", "A.", NumberFormat::Decimal, 6, "");
    row("B", "", NumberFormat::UpperLetter, 2, "");
}

void DocumentListsTest::readsNumbers()
{
    QFETCH(const QString, mark);
    const std::vector<model::ListNumber> numbers = model::possibleNumbers(mark);
    QVERIFY(!numbers.empty());
    QTEST(numbers[0].before, "before");
    QTEST(static_cast<int>(numbers[0].format), "format");
    QTEST(numbers[0].value, "value");
    QTEST(numbers[0].after, "after");
}

void DocumentListsTest::leavesOtherMarks()
{
    for (const char *mark : {"", "-", "01.", "12345.", "iiii)", "Ab.", "iC."}) {
        QVERIFY2(model::possibleNumbers(QString::fromLatin1(mark)).empty(), mark);
    }
}

void DocumentListsTest::choosesLettersOrRomanNumbers()
{
    const model::Document roman = items({{"i.", 0}, {"ii.", 0}, {"iii.", 0}});
    model::ListPlan plan = model::planLists(roman);
    QCOMPARE(plan.lists.size(), std::size_t{1});
    QCOMPARE(plan.lists[0].levels[0]->number->format, NumberFormat::LowerRoman);
    const model::Document letters = items({{"h.", 0}, {"i.", 0}, {"j.", 0}});
    plan = model::planLists(letters);
    QCOMPARE(plan.lists.size(), std::size_t{1});
    QCOMPARE(plan.lists[0].levels[0]->number->format, NumberFormat::LowerLetter);
    QCOMPARE(plan.lists[0].levels[0]->number->value, 8);
    QVERIFY(!placeAt(plan, letters, 2)->restart);
}

void DocumentListsTest::continuesTheListWithTheNumberBefore()
{
    const model::Document document = items({{"1.", 0}, {"2.", 0}, {"", 0}, {"3.", 0}, {"", 0}, {"1.", 0}, {"3.", 0}});
    const model::ListPlan plan = model::planLists(document);
    QCOMPARE(plan.lists.size(), std::size_t{2});
    QCOMPARE(placeAt(plan, document, 3)->list, placeAt(plan, document, 0)->list);
    QVERIFY(placeAt(plan, document, 3)->continues);
    QVERIFY(!placeAt(plan, document, 3)->restart);
    QVERIFY(!placeAt(plan, document, 5)->continues);
    QCOMPARE(placeAt(plan, document, 6)->list, placeAt(plan, document, 5)->list);
    QCOMPARE(placeAt(plan, document, 6)->restart, std::optional<int>(3));
    QCOMPARE(placeAt(plan, document, 2), nullptr);
}

void DocumentListsTest::beginsInnerListsAgain()
{
    const model::Document document =
        items({{"1.", 0}, {"a)", 1}, {"b)", 1}, {"2.", 0}, {"a)", 1}, {"*", 2}, {"3.", 0}, {"*", 1}, {"4.", 0}});
    const model::ListPlan plan = model::planLists(document);
    QCOMPARE(plan.lists.size(), std::size_t{2}); // bullets at the level of the letters are a list of their own
    for (std::size_t i = 0; i < 9; ++i) {
        QVERIFY(!placeAt(plan, document, i)->restart);
    }
    QCOMPARE(placeAt(plan, document, 8)->list, placeAt(plan, document, 0)->list);
    QVERIFY(placeAt(plan, document, 7)->list != placeAt(plan, document, 0)->list);
}

QTEST_APPLESS_MAIN(DocumentListsTest)
#include "document_lists_test.moc"
