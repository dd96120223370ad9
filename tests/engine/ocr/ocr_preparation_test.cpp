// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures are made ready for recognition: skew, turns, noise, dark pages, resolution.
#include "drawn_page.h"
#include "module/cleaning.h"
#include "module/preparation.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <map>

using namespace quorra::ocr;

namespace {

constexpr double resolution = 150;

QImage withSpecks(QImage page)
{
    QRandomGenerator source(7);
    for (int i = 0; i < page.width() * page.height() / 100; ++i) {
        page.scanLine(source.bounded(page.height()))[source.bounded(page.width())] = 0;
    }
    return page;
}

int darkPixelCount(PIX *gray)
{
    const PixPtr dark(pixThresholdToBinary(gray, 128));
    l_int32 count = 0;
    pixCountPixels(dark.get(), &count, nullptr);
    return count;
}

} // namespace

class OcrPreparationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsSkew_data();
    void findsSkew();
    void findsTurn_data();
    void findsTurn();
    void invertsDarkPages();
    void removesSpecksOnly();
    void evensPaper();
    void choosesScale_data();
    void choosesScale();
    void refusesWhatCannotBeRead_data();
    void refusesWhatCannotBeRead();
    void mapsBoxes_data();
    void mapsBoxes();
};

void OcrPreparationTest::findsSkew_data()
{
    QTest::addColumn<double>("degrees");
    for (const double degrees : {-10.0, -7.0, -3.0, -1.0, -0.5, 0.0, 1.0, 3.0, 7.0, 10.0}) {
        QTest::addRow("%g", degrees) << degrees;
    }
}

void OcrPreparationTest::findsSkew()
{
    QFETCH(const double, degrees);
    const QImage page = skewedPage(textPage(), degrees);
    const PreparedPicture found = prepared(rasterOf(page), resolution);
    QVERIFY(std::abs(found.frame.skew - degrees) < 0.2);
    QCOMPARE(found.frame.rotation, 0);
}

void OcrPreparationTest::findsTurn_data()
{
    QTest::addColumn<int>("turn");
    QTest::addColumn<double>("skew");
    for (const int turn : {0, 90, 180, 270}) {
        QTest::addRow("%d", turn) << turn << 0.0;
        QTest::addRow("%d skewed", turn) << turn << 4.0;
    }
}

void OcrPreparationTest::findsTurn()
{
    QFETCH(const int, turn);
    QFETCH(const double, skew);
    const QImage page = skewedPage(textPage(1000, 900).transformed(QTransform().rotate(turn)), skew);
    const PreparedPicture found = prepared(rasterOf(page), resolution);
    QCOMPARE(found.frame.rotation, turn);
    QVERIFY(std::abs(found.frame.skew - skew) < 0.2);
    QCOMPARE(pixGetWidth(found.gray.get()), 1000);
    QCOMPARE(pixGetHeight(found.gray.get()), 900);
}

void OcrPreparationTest::invertsDarkPages()
{
    QImage page = textPage();
    const PixPtr bright = grayPix(rasterOf(page));
    QVERIFY(!invertDarkPage(bright.get()));
    page.invertPixels();
    const PixPtr dark = grayPix(rasterOf(page));
    QVERIFY(invertDarkPage(dark.get()));
    QCOMPARE(darkPixelCount(dark.get()), darkPixelCount(bright.get()));
}

void OcrPreparationTest::removesSpecksOnly()
{
    const QImage page = textPage();
    const PixPtr print = grayPix(rasterOf(page));
    QVERIFY(!withoutNoise(print.get()));
    const QImage dirty = withSpecks(page);
    const PixPtr dirt = grayPix(rasterOf(dirty));
    const PixPtr clean = withoutNoise(dirt.get());
    QVERIFY(clean);
    const int text = darkPixelCount(print.get());
    const int specks = darkPixelCount(dirt.get()) - text;
    QVERIFY(std::abs(darkPixelCount(clean.get()) - text) < specks / 5);
}

void OcrPreparationTest::evensPaper()
{
    QImage page = textPage();
    QVERIFY(!withWhitePaper(grayPix(rasterOf(page)).get()));
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            uchar &pixel = page.scanLine(y)[x];
            pixel = static_cast<uchar>(pixel * (120 + 100 * x / page.width()) / 255);
        }
    }
    const PixPtr even = withWhitePaper(grayPix(rasterOf(page)).get());
    QVERIFY(even);
    l_uint32 left = 0;
    l_uint32 right = 0;
    pixGetPixel(even.get(), 50, 500, &left);
    pixGetPixel(even.get(), 950, 500, &right);
    QVERIFY(left > 190);
    QVERIFY(right > 190);
}

void OcrPreparationTest::choosesScale_data()
{
    QTest::addColumn<double>("dotsPerInch");
    QTest::addColumn<int>("width");
    QTest::newRow("low") << 75.0 << 3333;
    QTest::newRow("very low: not more than four times") << 50.0 << 4000;
    QTest::newRow("usual") << 150.0 << 1000;
    QTest::newRow("high") << 600.0 << 500;
    QTest::newRow("unknown: a page of usual height") << 0.0 << 2925;
    QTest::newRow("nonsense is unknown") << 1e9 << 2925;
}

void OcrPreparationTest::choosesScale()
{
    QFETCH(const double, dotsPerInch);
    QFETCH(const int, width);
    const QImage page = whitePage(1000, 1000);
    const PreparedPicture found = prepared(rasterOf(page), dotsPerInch);
    QVERIFY(found.gray);
    QVERIFY(std::abs(pixGetWidth(found.gray.get()) - width) <= 1);
}

void OcrPreparationTest::refusesWhatCannotBeRead_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("rows");
    QTest::newRow("empty") << 0 << 0;
    QTest::newRow("one pixel") << 1 << 1;
    QTest::newRow("thin") << 1000 << 5;
    QTest::newRow("too wide") << 20001 << 100;
    QTest::newRow("negative") << -5 << 100;
}

void OcrPreparationTest::refusesWhatCannotBeRead()
{
    QFETCH(const int, width);
    QFETCH(const int, rows);
    // Its pixels are not looked at.
    const quorra::Raster picture{width,   rows, quorra::ColourDepth::Gray, static_cast<std::size_t>(std::max(0, width)),
                                 nullptr, {}};
    QVERIFY(!prepared(picture, resolution).gray);
}

void OcrPreparationTest::mapsBoxes_data()
{
    QTest::addColumn<int>("rotation");
    QTest::addColumn<double>("baseline");
    QTest::newRow("0") << 0 << 30.0;
    QTest::newRow("90") << 90 << 70.0;
    QTest::newRow("180") << 180 << 170.0;
    QTest::newRow("270") << 270 << 30.0;
}

void OcrPreparationTest::mapsBoxes()
{
    QFETCH(const int, rotation);
    QFETCH(const double, baseline);
    // The given picture is 100 wide and 200 high, prepared at twice the size. A mark at its top left corner, 10 wide
    // and 20 high, is where the rotated picture has it.
    const PageFrame frame{2, 0, rotation, 200, 400};
    const quorra::Box given{0, 0, 10, 20};
    const std::map<int, quorra::Box> preparedBoxes = {
        {0, {0, 0, 20, 40}}, {90, {0, 180, 40, 200}}, {180, {180, 360, 200, 400}}, {270, {360, 0, 400, 20}}};
    QVERIFY(frame.onGiven(preparedBoxes.at(rotation)) == given);
    QCOMPARE(frame.baselineOnGiven(60), baseline);
}

QTEST_MAIN(OcrPreparationTest)
#include "ocr_preparation_test.moc"
