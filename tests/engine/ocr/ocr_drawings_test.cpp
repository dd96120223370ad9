// SPDX-License-Identifier: GPL-3.0-or-later
// Lines, photographs, dark boxes and drawings in pictures; which words are kept.
#include "drawn_page.h"
#include "module/cleaning.h"
#include "module/drawings.h"
#include "module/plausible_words.h"

#include <QTest>

#include <cmath>

using namespace quorra::ocr;
namespace model = quorra::model;

namespace {

constexpr double resolution = 150;

struct Page
{
    explicit Page(const QImage &image)
        : gray(grayPix(rasterOf(image)))
        , dark(checked(pixThresholdToBinary(gray.get(), darkThreshold(gray.get()))))
    {}

    PixPtr gray;
    PixPtr dark;
};

model::RecognisedWord word(const QString &text, const quorra::Box &box, double confidence, int line = 1)
{
    model::RecognisedWord made;
    made.text = text;
    made.box = box;
    made.confidence = confidence;
    made.line = line;
    return made;
}

bool near(const quorra::Box &a, const quorra::Box &b, double by)
{
    return std::abs(a.left - b.left) <= by && std::abs(a.top - b.top) <= by && std::abs(a.right - b.right) <= by &&
           std::abs(a.bottom - b.bottom) <= by;
}

/// Something like a photograph: waves of all shades.
void drawPhotograph(QImage &page, const QRect &place)
{
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            page.scanLine(y)[x] = static_cast<uchar>(80 + 60 * std::sin(x / 23.0) * std::cos(y / 31.0));
        }
    }
}

} // namespace

class OcrDrawingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsLines();
    void joinsBrokenLines();
    void textHasNoLines();
    void thickBarsAreNoLines();
    void findsPhotographs();
    void whiteTextOnBlackIsNoPhotograph();
    void findsDrawings();
    void keepsPlausibleWords();
};

void OcrDrawingsTest::findsLines()
{
    QImage image = textPage();
    QPainter painter(&image);
    painter.fillRect(100, 80, 800, 2, Qt::black);
    painter.fillRect(100, 160, 800, 3, Qt::black);
    painter.fillRect(100, 80, 2, 83, Qt::black);
    painter.end();
    const Page page(image);
    const std::vector<model::Rule> rules = straightLines(page.dark.get(), resolution);
    QCOMPARE(rules.size(), std::size_t(3));
    QVERIFY(rules[0].isHorizontal());
    QCOMPARE(rules[0].y1, 81.0);
    QCOMPARE(rules[0].x1, 100.0);
    QCOMPARE(rules[0].x2, 900.0);
    QCOMPARE(rules[0].width, 2.0);
    QCOMPARE(rules[1].width, 3.0);
    QVERIFY(!rules[2].isHorizontal());
    QCOMPARE(rules[2].x1, 101.0);
}

void OcrDrawingsTest::joinsBrokenLines()
{
    QImage image = whitePage(1000, 400);
    QPainter painter(&image);
    painter.fillRect(100, 80, 800, 2, Qt::black);
    for (int x = 150; x < 900; x += 60) {
        painter.fillRect(x, 79, 3, 4, Qt::white);
    }
    painter.end();
    const Page page(image);
    const std::vector<model::Rule> rules = straightLines(page.dark.get(), resolution);
    QCOMPARE(rules.size(), std::size_t(1));
    QCOMPARE(rules[0].length(), 800.0);
}

void OcrDrawingsTest::textHasNoLines()
{
    const Page page(textPage());
    QVERIFY(straightLines(page.dark.get(), resolution).empty());
    QVERIFY(photographs(page.dark.get(), page.gray.get(), resolution).empty());
    QVERIFY(darkBoxes(page.dark.get(), resolution, {}).empty());
}

void OcrDrawingsTest::thickBarsAreNoLines()
{
    QImage image = textPage();
    QPainter painter(&image);
    painter.fillRect(100, 80, 800, 30, Qt::black);
    painter.end();
    const Page page(image);
    QVERIFY(straightLines(page.dark.get(), resolution).empty());
}

void OcrDrawingsTest::findsPhotographs()
{
    QImage image = textPage();
    drawPhotograph(image, QRect(300, 20, 300, 140));
    const Page page(image);
    const std::vector<quorra::Box> found = photographs(page.dark.get(), page.gray.get(), resolution);
    QCOMPARE(found.size(), std::size_t(1));
    QVERIFY(near(found[0], {300, 20, 600, 160}, 16));
}

void OcrDrawingsTest::whiteTextOnBlackIsNoPhotograph()
{
    QImage image = textPage();
    QPainter painter(&image);
    painter.fillRect(100, 40, 800, 100, Qt::black);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(26);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(140, 100, QStringLiteral("White letters on a black band"));
    painter.end();
    const Page page(image);
    QVERIFY(photographs(page.dark.get(), page.gray.get(), resolution).empty());
    const std::vector<quorra::Box> found = darkBoxes(page.dark.get(), resolution, {});
    QCOMPARE(found.size(), std::size_t(1));
    QVERIFY(near(found[0], {100, 40, 900, 140}, 2));
}

void OcrDrawingsTest::findsDrawings()
{
    QImage image = textPage();
    QPainter painter(&image);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawEllipse(QPoint(500, 90), 70, 70);
    painter.end();
    const Page page(image);
    const std::vector<quorra::Box> found = lineDrawings(page.dark.get(), resolution, {}, {}, {});
    QCOMPARE(found.size(), std::size_t(1));
    QVERIFY(near(found[0], {429, 19, 572, 162}, 3));
    // A large initial is a word, not a drawing.
    QVERIFY(lineDrawings(page.dark.get(), resolution, {}, {}, {word(QStringLiteral("O"), {430, 20, 570, 160}, 0.9)})
                .empty());
}

void OcrDrawingsTest::keepsPlausibleWords()
{
    model::Rule rule;
    rule.x1 = 0;
    rule.x2 = 300;
    rule.y1 = rule.y2 = 100;
    std::vector<model::RecognisedWord> words = {
        word(QStringLiteral("Good"), {0, 0, 40, 10}, 0.95, 1),
        word(QStringLiteral("words"), {50, 0, 90, 10}, 0.9, 1),
        word(QStringLiteral("xq"), {100, 0, 110, 10}, 0.2, 1),
        word(QStringLiteral("&"), {120, 0, 125, 10}, 0.9, 1),
        word(QStringLiteral("~"), {130, 0, 135, 10}, 0.5, 1),
        word(QStringLiteral("faint"), {0, 40, 40, 50}, 0.4, 2),
        word(QStringLiteral("dirt"), {50, 40, 90, 50}, 0.35, 2),
        word(QStringLiteral("—"), {0, 98, 40, 102}, 0.9, 3),
        word(QStringLiteral("("), {0, 200, 100, 240}, 0.92, 5),
        word(QStringLiteral("sign"), {500, 500, 540, 510}, 0.9, 4),
    };
    keepPlausible(words, {rule}, {{490, 490, 600, 600}});
    QStringList texts;
    for (const model::RecognisedWord &kept : words) {
        texts << kept.text;
    }
    QCOMPARE(texts, QStringList({QStringLiteral("Good"), QStringLiteral("words"), QStringLiteral("&")}));
    QVERIFY(!words[1].endsLine);
    QVERIFY(words[2].endsLine);
}

QTEST_MAIN(OcrDrawingsTest)
#include "ocr_drawings_test.moc"
