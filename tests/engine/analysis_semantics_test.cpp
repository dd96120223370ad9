// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/headings.h"
#include "analysis/languages.h"
#include "document/language.h"
#include "document/page_walk.h"
#include "document/text_language.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace quorra;
using namespace quorra::model;

namespace {

/// "1 First" for a heading of level 1, "title First" for the title, in reading order.
QStringList headingsOf(const Document &document)
{
    QStringList found;
    for (const Page &page : document.pages) {
        forEachParagraph(page, [&found](const Paragraph &paragraph) {
            if (paragraph.role == Role::Heading) {
                const QString level =
                    paragraph.title ? QStringLiteral("title") : QString::number(paragraph.headingLevel);
                found << level + QLatin1Char(' ') + plainText(paragraph);
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

/// The fields of all headers and footers: "number 3", "count 12".
QStringList fieldsOf(const Document &document)
{
    QStringList found;
    for (const Page &page : document.pages) {
        forEachParagraph(page, [&found](const Paragraph &paragraph) {
            for (const Run &run : runsOf(paragraph)) {
                if (run.field != PageField::None) {
                    const bool number = run.field == PageField::Number;
                    found << (number ? QStringLiteral("number ") : QStringLiteral("count ")) + run.text.trimmed();
                }
            }
        });
    }
    return found;
}

/// Pages of prose with these footers and labels.
Document withFooters(const QStringList &footers, const QStringList &labels = {})
{
    std::vector<RawPage> pages;
    for (qsizetype i = 0; i < footers.size(); ++i) {
        PageMaker page(static_cast<int>(i) + 1);
        page.lines(60, 80, prose(40, QStringLiteral("page%1").arg(i)));
        page.text(60, 760, footers[i]);
        page.raw().label = labels.value(i);
        pages.push_back(page.raw());
    }
    return buildDocument(std::move(pages));
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
        QCOMPARE(headingsOf(document), QStringList({u"title The ferry"_s, u"1 Cables"_s, u"2 Steel"_s, u"1 Crew"_s}));
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
        QCOMPARE(headingsOf(document), QStringList({u"title The ferry"_s, u"1 Cables"_s, u"2 Of steel"_s}));
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

    void findsPageNumbers_data()
    {
        QTest::addColumn<QStringList>("footers");
        QTest::addColumn<QStringList>("labels");
        QTest::addColumn<QStringList>("fields");
        const auto add = [](const char *name, const QStringList &footers, const QStringList &labels,
                            const QStringList &fields) { QTest::newRow(name) << footers << labels << fields; };
        const QStringList counted = {u"number 1"_s, u"count 3"_s,  u"number 2"_s,
                                     u"count 3"_s,  u"number 3"_s, u"count 3"_s};
        add("alone", {u"1"_s, u"2"_s, u"3"_s}, {}, {u"number 1"_s, u"number 2"_s, u"number 3"_s});
        add("of a part", {u"Log 2024 | 11"_s, u"Log 2024 | 12"_s, u"Log 2024 | 13"_s}, {},
            {u"number 11"_s, u"number 12"_s, u"number 13"_s});
        add("with count", {u"Page 1 of 3"_s, u"Page 2 of 3"_s, u"Page 3 of 3"_s}, {}, counted);
        add("with count of a larger file", {u"Page 1 of 9"_s, u"Page 2 of 9"_s, u"Page 3 of 9"_s}, {},
            {u"number 1"_s, u"number 2"_s, u"number 3"_s});
        add("in one word", {u"1/3"_s, u"2/3"_s, u"3/3"_s}, {}, counted);
        add("Roman, then from 1", {u"ii"_s, u"iii"_s, u"iv"_s, u"1"_s, u"2"_s, u"3"_s}, {},
            {u"number ii"_s, u"number iii"_s, u"number iv"_s, u"number 1"_s, u"number 2"_s, u"number 3"_s});
        add("by label", {u"Log 5"_s, u"Log 23"_s, u"Log 40"_s}, {u"5"_s, u"23"_s, {}}, {u"number 5"_s, u"number 23"_s});
        add("each with its number", {u"Chart 9, page 1"_s, u"Chart 4, page 7"_s, u"Chart 1, page 3"_s}, {},
            {u"number 1"_s, u"number 3"_s});
        add("a year", {u"Log of 2024"_s, u"Log of 2024"_s, u"Log of 2024"_s}, {}, {});
        add("single page", {u"Page 7"_s}, {}, {u"number 7"_s});
        const QString many = u" 100"_s.repeated(20000); // takes minutes if each is compared with all
        add("among many numbers", {u"Page 1"_s + many, u"Page 2"_s + many}, {}, {u"number 1"_s, u"number 2"_s});
    }

    void findsPageNumbers()
    {
        QFETCH(QStringList, footers);
        QFETCH(QStringList, labels);
        QTEST(fieldsOf(withFooters(footers, labels)), "fields");
    }

    void findsContents()
    {
        PageMaker page;
        const auto entry = [&page](double x, double y, const QString &text, const QString &number) {
            const double end = page.text(x, y, text);
            page.text(end + 3, y, QString(static_cast<qsizetype>((500 - end) / 5), QLatin1Char('.')));
            page.text(515, y, number);
        };
        entry(60, 100, QStringLiteral("Cables and towers"), QStringLiteral("3"));
        entry(80, 116, QStringLiteral("Steel and rust"), QStringLiteral("4"));
        entry(60, 132, QStringLiteral("The crew of the boat"), QStringLiteral("12"));
        QStringList found;
        forEachParagraph(page.build().pages.front(), [&found](const Paragraph &paragraph) {
            if (paragraph.contentsEntry) {
                found << QString::number(paragraph.contentsEntry->level) + QLatin1Char(' ') +
                             paragraph.contentsEntry->page;
            }
        });
        QCOMPARE(found, QStringList({u"0 3"_s, u"1 4"_s, u"0 12"_s}));
    }

    void pricesAreNoContents()
    {
        PageMaker page;
        double y = 100;
        for (const char *price : {"30", "12", "25", "8"}) {
            const double end = page.text(60, y, QStringLiteral("Rope by the metre"));
            page.text(end + 3, y, QString(static_cast<qsizetype>((500 - end) / 5), QLatin1Char('.')));
            page.text(515, y, QString::fromLatin1(price));
            y += 16;
        }
        forEachParagraph(
            page.build().pages.front(), [](const Paragraph &paragraph) { QVERIFY(!paragraph.contentsEntry); });
    }

    void tellsLanguages_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("language");
        const auto add = [](const char *language, const char *text) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(language);
        };
        add("en", "The boat is kept at the northern bank, and it is not used in the winter.");
        add("de", "Das Boot liegt am nördlichen Ufer und wird im Winter nicht für die Überfahrt benutzt.");
        add("fr", "Le bateau reste sur la rive nord et il ne sert pas pour la traversée en hiver.");
        add("es", "El barco se queda en la orilla del norte y no se usa para el cruce en los meses de frío.");
        add("it", "La barca resta sulla riva a nord e non si usa per la traversata nei mesi della neve.");
        add("pt", "O barco fica na margem do norte e não se usa para a travessia nos meses de frio.");
        add("nl", "De boot ligt aan de oever in het noorden en wordt in de winter niet voor het veer gebruikt.");
        add("sv", "Båten ligger på den norra stranden och används inte för överfarten om det är vinter.");
        add("pl", "Łódź leży na brzegu i nie jest używana w zimie, bo rzeka się nie nadaje do tego.");
        add("ru", "Лодка стоит у северного берега.");
        add("uk", "Човен стоїть біля північного берега.");
        add("el", "Το πλοίο");
        add("ar", "القارب على الضفة");
        add("fa", "قایق در کنار پل");
        add("he", "הסירה בגדה");
        add("ja", "船は北の岸にあります");
        add("zh", "船在北岸");
        add("ko", "배는 북쪽에");
        add("th", "เรืออยู่");
        add("", "Lorem ipsum dolor sit amet, consectetur adipiscing elit.");
        add("", "Anna Holm, Oldham Reach");
        add("", "12 345 67");
        add("", "");
    }

    void tellsLanguages()
    {
        QFETCH(QString, text);
        QTEST(languageOfText(text), "language");
    }

    void statedLanguageGivesWayOnlyToClearText()
    {
        const QString danish =
            QStringLiteral("Det er en båd, som ikke er i vandet om vinteren, og den ligger ved en bro.");
        QCOMPARE(languageOfText(danish, QStringLiteral("nb")), QString());
        const QString english =
            QStringLiteral("The boat is kept at the northern bank, and it is not used in the winter.");
        QCOMPARE(languageOfText(english, QStringLiteral("fr-FR")), QStringLiteral("en"));
    }

    void paragraphsMayBeInOtherLanguages()
    {
        PageMaker page;
        const auto paragraphs = [&page](double y, const QStringList &lines) { return page.lines(60, y, lines) + 24; };
        double y = paragraphs(
            80, {u"The boat is kept at the northern bank, and it is not used in the winter, because of"_s,
                 u"the ice on the river, which comes down with the water from the hills in the east."_s});
        y = paragraphs(
            y, {QStringLiteral("Das Boot liegt am Ufer und wird im Winter nicht benutzt, weil das Eis auf dem Fluss"),
                QStringLiteral("mit dem Wasser aus den Bergen kommt und die Seile nicht zu sehen sind.")});
        paragraphs(y, {u"It is the law of the town that the boat has to be on the river in the summer."_s});
        FileFacts facts;
        facts.language = QStringLiteral("fr-FR"); // it lies
        Document document = page.build();
        document.facts = facts;
        findLanguages(document);
        QCOMPARE(languageOf(document), QStringLiteral("en"));
        QStringList languages;
        forEachParagraph(
            document.pages.front(), [&languages](const Paragraph &paragraph) { languages << paragraph.language; });
        QCOMPARE(languages, QStringList({u""_s, u"de"_s, u""_s}));
    }
};

QTEST_APPLESS_MAIN(AnalysisSemanticsTest)
#include "analysis_semantics_test.moc"
