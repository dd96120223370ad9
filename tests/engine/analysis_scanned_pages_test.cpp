// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "threshold_edges.h"

#include "analysis/analysis.h"
#include "analysis/scanned_pages.h"
#include "analysis/scans/add_recognised.h"
#include "analysis/scans/even_type.h"
#include "analysis/scans/text_layer.h"
#include "document/page_walk.h"
#include "document/text.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

constexpr double pageWidth = 600;
constexpr double pageHeight = 800;

RawPage emptyPage()
{
    RawPage page;
    page.width = pageWidth;
    page.height = pageHeight;
    return page;
}

/// A page with an image that covers a share of it, from the top.
RawPage pageWithImage(double share, double resolution = 0)
{
    RawPage page = emptyPage();
    page.pictures.push_back({{0, 0, pageWidth, pageHeight * share}, {}, false, false, resolution});
    return page;
}

RawWord marks(double letters, double baseline)
{
    return word(QString(static_cast<qsizetype>(letters), QLatin1Char('a')), 100, 100, baseline);
}

bool isMissing(const RawPage &page)
{
    return textLayerOf(page) == TextLayer::Missing;
}

bool isDrawn(double curves, double side, double drawn = 0)
{
    RawPage page = emptyPage();
    for (int i = 0; i < static_cast<int>(curves); ++i) {
        page.ink.push_back({{10, 10, 10 + side, 10 + side / 2}});
    }
    for (int i = 0; i < static_cast<int>(drawn); ++i) {
        page.ink.push_back({{10, 10, 300, 300}});
    }
    return textLayerOf(page) == TextLayer::Drawn;
}

/// A page with that many vowels and consonants in its middle.
RawPage pageOfLetters(double vowels, double consonants)
{
    RawPage page = emptyPage();
    const QString text = QString(static_cast<qsizetype>(vowels), QLatin1Char('E')) +
                         QString(static_cast<qsizetype>(consonants), QLatin1Char('k'));
    page.words.push_back(word(text, 100, 100, 400));
    return page;
}

bool isDoubtful(const RawPage &page)
{
    return textLayerOf(page) == TextLayer::Doubtful;
}

RecognisedWord recognised(const QString &text, double left, double top, double confidence = 0.9)
{
    RecognisedWord made;
    made.text = text;
    made.line = static_cast<int>(top) * 10'000 + static_cast<int>(left); // a line of its own
    made.box = {left, top, left + 100, top + 40};
    made.baseline = top + 32;
    made.size = 40;
    made.confidence = confidence;
    return made;
}

constexpr double dot = 0.25; // points of a pixel in these tests

RecognisedPicture pictureWith(const QStringList &texts, double confidence = 0.9)
{
    RecognisedPicture picture;
    double top = 400;
    for (const QString &text : texts) {
        picture.words.push_back(recognised(text, 400, top, confidence));
        top += 60;
    }
    return picture;
}

QStringList manyWords(std::size_t count)
{
    QStringList words;
    for (std::size_t i = 0; i < count; ++i) {
        words.append(QStringLiteral("word%1").arg(i));
    }
    return words;
}

/// Whether what is recognised replaces words without sense, of which some are the same.
bool isReplaced(double count, double same, double confidence = 0.9)
{
    const QStringList words = manyWords(static_cast<std::size_t>(count));
    RawPage page = pageOfLetters(10, 200);
    for (int i = 0; i < static_cast<int>(same); ++i) {
        page.words.push_back(word(words[i], 100, 100, 300));
    }
    return addRecognised(page, TextLayer::Doubtful, pictureWith(words, confidence), dot);
}

std::vector<Edge> edges()
{
    using textLayer::thresholds;
    namespace adding = addingRecognised;
    return {
        minimum(
            "image of a page without text", thresholds.minImageArea,
            [](double share) { return isMissing(pageWithImage(share)); }),
        minimum(
            "image of a page with marks", thresholds.minMarkedArea,
            [](double share) {
                RawPage page = pageWithImage(share);
                page.words.push_back(marks(3, 795));
                return isMissing(page);
            }),
        most(
            "marks at the edges", thresholds.maxMarks,
            [](double letters) {
                RawPage page = pageWithImage(1);
                page.words.push_back(marks(letters, 795));
                return isMissing(page);
            }),
        most(
            "marks elsewhere", thresholds.maxElsewhere,
            [](double letters) {
                RawPage page = pageWithImage(1);
                page.words.push_back(marks(letters, 400));
                return isMissing(page);
            }),
        maximum(
            "where the edge is", thresholds.edge * pageHeight,
            [](double y) {
                RawPage page = pageWithImage(1);
                page.words.push_back(marks(100, y + 3)); // the middle of a word of 10 points
                return isMissing(page);
            }),
        fewest("letters that are curves", thresholds.minCurves, [](double curves) { return isDrawn(curves, 8); }),
        minimum("size of a letter", thresholds.minLetter, [](double side) { return isDrawn(200, side); }),
        maximum("size of a large letter", thresholds.maxLetter, [](double side) { return isDrawn(200, side); }),
        maximum(
            "other curves", 1 / thresholds.minLetterShare,
            [](double all) { return isDrawn(1000, 8, 1000 * all - 1000); }),
        fewest(
            "letters that prove something", thresholds.minLetters,
            [](double letters) { return isDoubtful(pageOfLetters(0, letters)); }),
        maximum(
            "vowels", thresholds.minVowels,
            [](double share) { return isDoubtful(pageOfLetters(1000 * share, 1000 * (1 - share))); }),
        minimum(
            "strange characters", thresholds.maxStrange,
            [](double share) {
                RawPage page = pageOfLetters(500 * (1 - share), 500 * (1 - share));
                page.words.push_back(word(QString(static_cast<int>(1000 * share), QChar(0xE000)), 100, 100, 500));
                return isDoubtful(page);
            }),
        minimum(
            "resolution of a scan", thresholds.minResolution,
            [](double resolution) {
                return readingResolution(pageWithImage(1, resolution)) == resolution; // otherwise the usual one
            }),
        maximum(
            "resolution", thresholds.maxResolution,
            [](double resolution) { return readingResolution(pageWithImage(1, resolution)) == resolution; }),
        minimum(
            "images that count", thresholds.minShareOfPicture,
            [](double share) { return readingResolution(pageWithImage(share, 200)) == 200; }),
        fewest(
            "letters that were recognised", adding::thresholds.minLetters,
            [](double letters) {
                RawPage page = pageWithImage(1);
                return addRecognised(page, TextLayer::Missing, pictureWith({QString(int(letters), u'x')}), dot);
            }),
        minimum(
            "more than the marks", adding::thresholds.minMoreThanMarks * 50,
            [](double letters) {
                RawPage page = pageWithImage(1);
                page.words.push_back(marks(50, 795));
                return addRecognised(page, TextLayer::Missing, pictureWith({QString(int(letters), u'x')}), dot);
            }),
        fewest("words that contradict", adding::thresholds.minWords, [](double count) { return isReplaced(count, 0); }),
        minimum(
            "confidence", adding::thresholds.minConfidence,
            [](double confidence) { return isReplaced(100, 0, confidence); }),
        maximum(
            "agreement", adding::thresholds.maxAgreement, [](double share) { return isReplaced(1000, 1000 * share); }),
        maximum(
            "text on a photograph", adding::thresholds.maxTextOnPart,
            [](double share) {
                RawPage page = pageWithImage(1);
                page.pictures.push_back({{100, 100, 200, 200}, {}, false, true});
                page.words.push_back(word(QStringLiteral("text"), 100, 1000 * share, 150));
                removePartsWithText(page);
                return page.pictures.size() == 2;
            }),
        fewest(
            "compared words", static_cast<std::size_t>(adding::thresholds.minCompared),
            [](double letters) {
                RawPage page = pageOfLetters(10, 200);
                QStringList words;
                for (int i = 0; i < 100; ++i) {
                    words.append(QString(static_cast<int>(letters), QChar(u'a' + i % 26)));
                }
                return addRecognised(page, TextLayer::Doubtful, pictureWith(words), dot);
            }),
    };
}

bool hasFigure(const Document &document, const Box &box)
{
    bool has = false;
    forEachBlock(
        document.pages.front(), [&](const Block &block) { has = has || (block.figure() && block.box() == box); });
    return has;
}

QString textOf(const Document &document)
{
    QStringList texts;
    forEachParagraph(document.pages.front(), [&texts](const Paragraph &each) { texts.append(plainText(each)); });
    return texts.join(QLatin1Char('|'));
}

} // namespace

class AnalysisScannedPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholdsAreSharp_data() { addRows(edges()); }
    void thresholdsAreSharp() { checkRow(edges()); }

    void keepsTextThatAPageHas()
    {
        QCOMPARE(textLayerOf(emptyPage()), TextLayer::Usable);
        RawPage page = pageWithImage(1);
        page.words.push_back(word(QStringLiteral("The title on a photograph"), 100, 200, 400));
        QCOMPARE(textLayerOf(page), TextLayer::Usable);
        for (RawWord &each : page.words) {
            each.hidden = true; // a searchable scan
        }
        QCOMPARE(textLayerOf(page), TextLayer::Usable);
    }

    void countsTilesOfAScanOnce()
    {
        RawPage page = emptyPage();
        for (int i = 0; i < 10; ++i) { // the same small image ten times
            page.pictures.push_back({{0, 0, pageWidth, 0.1 * pageHeight}});
        }
        QCOMPARE(textLayerOf(page), TextLayer::Usable);
        for (int i = 1; i < 4; ++i) {
            page.pictures.push_back({{0, 0.1 * i * pageHeight, pageWidth, 0.1 * (i + 1) * pageHeight}});
        }
        QCOMPARE(textLayerOf(page), TextLayer::Missing);
    }

    void textOfAnyLanguageMakesSense_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("Czech") << QStringLiteral("Příliš žluťoučký kůň úpěl ďábelské ódy, čtvrt vlk zhltl hrst zrn");
        QTest::newRow("Polish") << QStringLiteral("Chrząszcz brzmi w trzcinie w Szczebrzeszynie koło Przemyśla");
        QTest::newRow("Welsh") << QStringLiteral("Mae hi'n bwrw glaw yn y mynyddoedd, ac yn oer iawn yng Nghymru");
        QTest::newRow("Vietnamese") << QStringLiteral("Tất cả mọi người sinh ra đều được tự do và bình đẳng");
        QTest::newRow("Greek") << QStringLiteral("Όλοι οι άνθρωποι γεννιούνται ελεύθεροι και ίσοι");
        QTest::newRow("Hebrew") << QStringLiteral("כל בני האדם נולדו בני חורין ושווים בערכם");
        QTest::newRow("Chinese") << QStringLiteral("人人生而自由，在尊严和权利上一律平等");
        QTest::newRow("numbers") << QStringLiteral("1 234,50 € 17 % 3.141592 2026-11-22 +49 30 123456");
        QTest::newRow("parts") << QStringLiteral("BX-1774/KR 20 mm, DIN 931, M8 x 40, 25 Stück, 8.8 verzinkt");
    }

    void textOfAnyLanguageMakesSense()
    {
        QFETCH(QString, text);
        QVERIFY(!isSenseless(std::vector<RawWord>(10, word(text, 0, 100, 100))));
    }

    void shiftedLettersMakeNoSense()
    {
        QString text = QStringLiteral("The committee shall report on the results of its work every year");
        for (QChar &c : text) { // as from a font without a map to Unicode
            c = c.isSpace() ? c : QChar(c.unicode() - 29);
        }
        QVERIFY(isSenseless(std::vector<RawWord>(10, word(text, 0, 100, 100))));
    }

    void rendersWithAWholeFractionOfTheResolution()
    {
        QCOMPARE(readingResolution(emptyPage()), 300.);
        QCOMPARE(readingResolution(pageWithImage(1, 600)), 300.);
        QCOMPARE(readingResolution(pageWithImage(1, 150)), 150.);
        QCOMPARE(readingResolution(pageWithImage(1, 1200)), 400.);
    }

    void wordsBecomeTextOfThePage()
    {
        RawPage page = pageWithImage(1);
        QVERIFY(addRecognised(page, TextLayer::Missing, pictureWith({QStringLiteral("Hello")}), dot));
        const RawWord &raw = page.words.front();
        QCOMPARE(raw.box, (Box{100, 100, 125, 110}));
        QCOMPARE(raw.baseline, 108.);
        QCOMPARE(raw.style.size, 10.);
        QVERIFY(raw.hidden);
        const Document document = buildDocument({page});
        QCOMPARE(textOf(document), QStringLiteral("Hello"));
        QVERIFY(document.pages.front().recognised && !document.pages.front().scanned);
        QVERIFY(!hasFigure(document, {0, 0, pageWidth, pageHeight}));
        const Word &word = document.pages.front().sections.front().blocks.front().paragraph()->lines[0].words[0];
        QCOMPARE(word.confidence, std::optional<double>(0.9));
        QCOMPARE(word.style->family, QStringLiteral("Times New Roman"));
    }

    void wordsOfALineHaveTheSameType()
    {
        std::vector<RecognisedWord> words{
            recognised(QStringLiteral("one"), 0, 100), recognised(QStringLiteral("line"), 200, 103),
            recognised(QStringLiteral("here"), 400, 102), recognised(QStringLiteral("Title"), 0, 300)};
        for (int i = 0; i < 3; ++i) {
            words[static_cast<std::size_t>(i)].line = 1;
        }
        words[1].size = 44;
        words[2].size = 42;
        words[3].size = 42 * evenType::thresholds.sameSize * 1.02;
        evenOutType(words);
        for (std::size_t i = 0; i < 3; ++i) {
            QCOMPARE(words[i].baseline, 134.);
            QCOMPARE(words[i].size, 42.);
            QVERIFY(std::abs(words[i].box.top - (134 - 0.8 * 42)) < 1e-9);
            QVERIFY(std::abs(words[i].box.bottom - (134 + 0.2 * 42)) < 1e-9);
        }
        QVERIFY(words[3].size > 42); // a size of its own
        words[3].size = 42 * evenType::thresholds.sameSize * 0.98;
        evenOutType(words);
        QCOMPARE(words[3].size, 42.);
    }

    void rotatedWordsStandOnTheirBaselines_data()
    {
        QTest::addColumn<int>("rotation");
        QTest::addColumn<Box>("box");
        QTest::newRow("down") << 90 << Box{90, 0, 140, 200};
        QTest::newRow("upside down") << 180 << Box{0, 90, 200, 140};
        QTest::newRow("up") << 270 << Box{60, 0, 110, 200};
    }

    void rotatedWordsStandOnTheirBaselines()
    {
        QFETCH(int, rotation);
        std::vector<RecognisedWord> words(1);
        words[0].rotation = rotation;
        words[0].baseline = 100;
        words[0].size = 50;
        words[0].box = rotation == 180 ? Box{0, 95, 200, 120} : Box{95, 0, 120, 200};
        evenOutType(words);
        QTEST(words[0].box, "box");
    }

    void photographsStayPictures()
    {
        RawPage page = pageWithImage(1);
        RecognisedPicture picture = pictureWith(manyWords(10));
        picture.figures.push_back({400, 2000, 1600, 2800});
        QVERIFY(addRecognised(page, TextLayer::Missing, picture, dot));
        QVERIFY(hasFigure(buildDocument({page}), {100, 500, 400, 700}));
    }

    void ruledTablesBecomeTables()
    {
        RawPage page = pageWithImage(1);
        RecognisedPicture picture;
        for (int i = 0; i < 4; ++i) {
            picture.rules.push_back({400, 400 + 200. * i, 1600, 400 + 200. * i, 4, black});
            picture.rules.push_back({400 + 400. * i, 400, 400 + 400. * i, 1000, 4, black});
            for (int k = 0; k < 3 && i < 3; ++k) {
                picture.words.push_back(recognised(QStringLiteral("cell"), 440 + 400 * i, 460 + 200 * k));
            }
        }
        QVERIFY(addRecognised(page, TextLayer::Missing, picture, dot));
        const Document document = buildDocument({page});
        const Table *table = document.pages.front().sections.front().blocks.front().table();
        QVERIFY(table);
        QCOMPARE(table->rows(), 3);
        QCOMPARE(table->columns(), 3);
    }

    void textOnDarkFillsIsWhite()
    {
        RawPage page = pageWithImage(1);
        RecognisedPicture picture = pictureWith({QStringLiteral("Light"), QStringLiteral("Dark")});
        picture.fills.push_back({{380, 390, 600, 450}, 0x202020});
        QVERIFY(addRecognised(page, TextLayer::Missing, picture, dot));
        QCOMPARE(page.words[0].style.colour, white);
        QCOMPARE(page.words[1].style.colour, black);
    }

    void marksAreNotRepeated()
    {
        RawPage page = pageWithImage(1);
        RawWord stamp = word(QStringLiteral("Archive"), 100, 25, 108);
        page.words.push_back(stamp);
        QVERIFY(addRecognised(
            page, TextLayer::Missing, pictureWith({QStringLiteral("Archive"), QStringLiteral("of the city")}), dot));
        QCOMPARE(textOf(buildDocument({page})).count(QStringLiteral("Archive")), 1);
    }

    void curvesOfLettersBecomeWords()
    {
        RawPage page = emptyPage();
        for (int i = 0; i < 5; ++i) {
            page.ink.push_back({{100. + 5 * i, 101, 104. + 5 * i, 108}});
        }
        page.ink.push_back({{300, 300, 310, 310}});
        QVERIFY(addRecognised(page, TextLayer::Drawn, pictureWith({QStringLiteral("Hello")}), dot));
        QCOMPARE(page.ink.size(), std::size_t{1});
        QVERIFY(!page.words.front().hidden);
        QCOMPARE(textOf(buildDocument({page})), QStringLiteral("Hello"));
    }

    void wordsWithoutSenseAreReplaced()
    {
        RawPage page = pageOfLetters(10, 200);
        QVERIFY(addRecognised(page, TextLayer::Doubtful, pictureWith(manyWords(20)), dot));
        QCOMPARE(page.words.size(), std::size_t{20});
        QVERIFY(!page.words.front().hidden);
        page = pageOfLetters(10, 200);
        QVERIFY(!addRecognised(page, TextLayer::Usable, pictureWith(manyWords(20)), dot));
        QCOMPARE(page.words.size(), std::size_t{1});
    }
};

QTEST_APPLESS_MAIN(AnalysisScannedPagesTest)
#include "analysis_scanned_pages_test.moc"
