// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "document/page_walk.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

/// A page with the items, each a mark at x and a text beside it, and plain text where the mark is empty.
struct Item
{
    double x;
    const char *mark;
};

/// The levels of the list items, from 0.
QString levelsOf(const std::vector<Item> &items)
{
    PageMaker page;
    double y = 80;
    for (const Item &item : items) {
        const QString mark = QString::fromUtf8(item.mark);
        if (mark.isEmpty()) {
            y = page.lines(
                item.x, y + 12,
                {QStringLiteral("Text that is none of the list stands between some of its items and ends here."),
                 QStringLiteral("It has two lines.")});
            y += 12;
            continue;
        }
        page.text(item.x, y, mark);
        page.text(item.x + 30, y, QStringLiteral("An entry of a list, which is not long."));
        y += 14;
    }
    const Document document = page.build();
    QStringList levels;
    forEachParagraph(document.pages.front(), [&levels](const Paragraph &paragraph) {
        if (paragraph.listItem) {
            levels << QString::number(paragraph.listItem->level);
        }
    });
    return levels.join(QLatin1Char(' '));
}

} // namespace

class AnalysisListsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lettersAndNumbersOfPartsAreMarksBeforeWideGaps_data()
    {
        QTest::addColumn<QString>("mark");
        QTest::addColumn<double>("gap");
        QTest::addColumn<bool>("isItem");
        for (const char *mark : {"o", "1.1", "2.10.3", "A.3"}) {
            QTest::addRow("%s", mark) << QString::fromLatin1(mark) << 12.0 << true;
            QTest::addRow("%s in a text", mark) << QString::fromLatin1(mark) << 2.5 << false;
        }
        QTest::newRow("a word") << QStringLiteral("a") << 12.0 << false;
        QTest::newRow("a number") << QStringLiteral("2024") << 12.0 << false;
    }

    void lettersAndNumbersOfPartsAreMarksBeforeWideGaps()
    {
        QFETCH(QString, mark);
        QFETCH(double, gap);
        PageMaker page;
        double y = page.lines(60, 80, prose(2)) + 24;
        for (int i = 0; i < 2; ++i, y += 14) {
            const double end = page.text(80, y, mark) - 2.5; // without the space after it
            page.text(end + gap, y, QStringLiteral("An entry of a list, which is not long."));
        }
        int items = 0;
        forEachParagraph(
            page.build().pages.front(), [&items](const Paragraph &paragraph) { items += paragraph.listItem ? 1 : 0; });
        QFETCH(bool, isItem);
        QCOMPARE(items, isItem ? 2 : 0);
    }

    void findsLevels_data()
    {
        QTest::addColumn<std::vector<Item>>("items");
        QTest::addColumn<QString>("levels");
        const auto add = [](const char *name, const std::vector<Item> &items, const char *levels) {
            QTest::newRow(name) << items << QString::fromUtf8(levels);
        };
        add("one list", {{60, "1."}, {60, "2."}, {60, "3."}}, "0 0 0");
        add("an inner list", {{60, "1."}, {80, "(a)"}, {80, "(b)"}, {60, "2."}, {80, "(a)"}}, "0 1 1 0 1");
        add("an inner list without indent", {{60, "1."}, {60, "(a)"}, {60, "(b)"}, {60, "2."}}, "0 1 1 0");
        add("bullets below a number", {{60, "1."}, {60, "•"}, {60, "•"}, {60, "2."}}, "0 1 1 0");
        add("numbers after a bullet", {{60, "•"}, {60, "1."}, {60, "2."}}, "0 0 0");
        add("numbers after text", {{60, "1."}, {80, "a)"}, {60, ""}, {80, "b)"}, {60, "2."}}, "0 1 1 0");
        add("bullets after text", {{60, "1."}, {60, ""}, {80, "•"}, {60, ""}, {60, "2."}}, "0 0 0");
        add("letters that are Roman numbers, too", {{60, "(h)"}, {60, "(i)"}, {60, "(j)"}}, "0 0 0");
        add("Roman numbers below them", {{60, "(a)"}, {60, "(i)"}, {60, "(ii)"}, {60, "(b)"}}, "0 1 1 0");
    }

    void findsLevels()
    {
        QFETCH(std::vector<Item>, items);
        QTEST(levelsOf(items), "levels");
    }
};

QTEST_APPLESS_MAIN(AnalysisListsTest)
#include "analysis_lists_test.moc"
