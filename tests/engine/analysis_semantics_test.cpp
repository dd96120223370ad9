// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/headings.h"
#include "document/page_walk.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace quorra;
using namespace quorra::model;

namespace {

/// "1 First" for a heading of level 1, in reading order.
QStringList headingsOf(const Document &document)
{
    QStringList found;
    for (const Page &page : document.pages) {
        forEachParagraph(page, [&found](const Paragraph &paragraph) {
            if (paragraph.role == Role::Heading) {
                found << QString::number(paragraph.headingLevel) + QLatin1Char(' ') + plainText(paragraph);
            }
        });
    }
    return found;
}

/// A line of a page: how large, whether bold, and what. Empty texts stand for a paragraph of prose.
struct Text
{
    double size;
    bool bold;
    QString text;
};

RawPage pageOf(const std::vector<Text> &texts, int number = 1)
{
    PageMaker page(number);
    double y = 60;
    for (const Text &each : texts) {
        if (each.text.isEmpty()) {
            y = page.lines(60, y, prose(3)) + 20;
        } else {
            each.bold ? page.bold(60, y, each.text, each.size) : page.text(60, y, each.text, each.size);
            y += 2.5 * each.size;
        }
    }
    return page.raw();
}

Document withOutline(std::vector<RawPage> pages, std::vector<OutlineEntry> outline)
{
    Document document = buildDocument(std::move(pages));
    document.facts.outline = std::move(outline);
    useOutline(document);
    return document;
}

} // namespace

class AnalysisSemanticsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headingsBelowTheTitleBeginAtLevelOne()
    {
        const Document document = buildDocument({pageOf(
            {{24, false, u"The ferry"_s},
             {10, false, u""_s},
             {16, false, u"Cables"_s},
             {10, false, u""_s},
             {13, false, u"Steel"_s},
             {10, false, u""_s},
             {16, false, u"Crew"_s},
             {10, false, u""_s}})});
        QCOMPARE(headingsOf(document), QStringList({u"1 The ferry"_s, u"1 Cables"_s, u"2 Steel"_s, u"1 Crew"_s}));
    }

    void largestTypeInSeveralPlacesIsNoTitle()
    {
        const Document document = buildDocument({pageOf(
            {{16, false, u"Cables"_s},
             {10, false, u""_s},
             {13, false, u"Steel"_s},
             {10, false, u""_s},
             {16, false, u"Crew"_s},
             {10, false, u""_s}})});
        QCOMPARE(headingsOf(document), QStringList({u"1 Cables"_s, u"2 Steel"_s, u"1 Crew"_s}));
    }

    void onlyHeadingIsNoTitle()
    {
        QCOMPARE(
            headingsOf(buildDocument({pageOf({{16, false, u"Cables"_s}, {10, false, u""_s}})})),
            QStringList(u"1 Cables"_s));
    }

    void numbersTellLevels()
    {
        const Document document = buildDocument({pageOf(
            {{12, true, u"1 Cables"_s},
             {10, false, u""_s},
             {12, true, u"1.1 Steel"_s},
             {10, false, u""_s},
             {12, true, u"1.1.1 Rust"_s},
             {10, false, u""_s},
             {12, true, u"2 Crew"_s},
             {10, false, u""_s}})});
        QCOMPARE(
            headingsOf(document), QStringList({u"1 1 Cables"_s, u"2 1.1 Steel"_s, u"3 1.1.1 Rust"_s, u"1 2 Crew"_s}));
    }

    void outlineTellsHeadings()
    {
        // They look like text, and the largest line is none of them.
        const std::vector<RawPage> pages = {pageOf(
            {{20, false, u"The ferry"_s},
             {10, false, u""_s},
             {10, false, u"Cables"_s},
             {10, false, u""_s},
             {10, false, u"Of steel"_s},
             {10, false, u""_s}})};
        const Document document = withOutline(pages, {{u"Cables"_s, 0, 1, 0}, {u"OF  STEEL"_s, 1, 1, 0}});
        QCOMPARE(headingsOf(document), QStringList({u"1 The ferry"_s, u"1 Cables"_s, u"2 Of steel"_s}));
    }

    void outlineThatDisagreesIsIgnored_data()
    {
        QTest::addColumn<std::vector<OutlineEntry>>("outline");
        const auto add = [](const char *name, const std::vector<OutlineEntry> &outline) {
            QTest::newRow(name) << outline;
        };
        add("other texts",
            {{u"Page 1"_s, 0, 1, 0}, {u"Page 2"_s, 0, 1, 0}, {u"Page 3"_s, 0, 1, 0}, {u"Cables"_s, 0, 1, 0}});
        add("other pages", {{u"Cables"_s, 0, 7, 0}, {u"Steel"_s, 3, 0, 0}});
        add("one entry", {{u"Steel"_s, 0, 1, 0}});
        add("no text", {{QString(), 0, 1, 0}, {u" "_s, 0, 1, 0}, {u"…"_s, 0, 1, 0}});
    }

    void outlineThatDisagreesIsIgnored()
    {
        QFETCH(std::vector<OutlineEntry>, outline);
        const std::vector<RawPage> pages = {pageOf(
            {{16, false, u"Cables"_s},
             {10, false, u""_s},
             {13, false, u"Steel"_s},
             {10, false, u""_s},
             {16, false, u"Crew"_s},
             {10, false, u""_s}})};
        QCOMPARE(headingsOf(withOutline(pages, outline)), headingsOf(buildDocument(pages)));
    }

    void boldLinesBelowOneAnotherAreLabels()
    {
        const Document document = buildDocument({pageOf(
            {{10, true, u"Name"_s},
             {10, true, u"Street"_s},
             {10, true, u"Town"_s},
             {10, false, u""_s},
             {10, true, u"Watering"_s},
             {10, false, u""_s}})});
        QCOMPARE(headingsOf(document), QStringList(u"1 Watering"_s));
    }

    void runningTitlesOfOneLookAreHeaders()
    {
        std::vector<RawPage> pages;
        for (const QString &title : {u"Cables"_s, u"Cables"_s, u"Crew"_s, u"Tower"_s, u"Cables"_s, u"Cables"_s}) {
            PageMaker page(static_cast<int>(pages.size()) + 1);
            page.bold(60, 40, title, 8);
            page.lines(60, 100, prose(40, QStringLiteral("page%1").arg(pages.size())));
            pages.push_back(page.raw());
        }
        const Document document = buildDocument(std::move(pages));
        for (const Page &page : document.pages) {
            QCOMPARE(page.header.size(), std::size_t(1));
        }
    }
};

QTEST_APPLESS_MAIN(AnalysisSemanticsTest)
#include "analysis_semantics_test.moc"
