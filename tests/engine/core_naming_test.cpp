// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "cli/naming.h"
#include "convert/paper_size.h"
#include "convert/picture_rules.h"

#include <QTest>

#include <cmath>

using namespace quorra;

class CoreNamingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberField_data();
    void numberField();
    void templateText_data();
    void templateText();
    void path_data();
    void path();
    void depth_data();
    void depth();
    void size_data();
    void size();
    void tooLarge_data();
    void tooLarge();
    void paper_data();
    void paper();
};

void CoreNamingTest::numberField_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *text, int number, const char *expected) {
        QTest::addRow("%s %d", text, number) << QString::fromLatin1(text) << number << QString::fromLatin1(expected);
    };
    row("page", 1, "page0001");
    row("page", 12345, "page12345");
    row("", 7, "0007");
    row("%d", 7, "7");
    row("p%dq", 12, "p12q");
    row("p%04dq", 12, "p0012q");
    row("p%4dq", 12, "p0012q");
    row("p%02d", 123, "p123");
    row("%00d", 5, "5");
    row("%099d", 5, "00000000000000000005");
    row("%999999999999999999999d", 5, "00000000000000000005");
    row("%d-%d", 3, "3-%d");
    row("%s%d", 3, "%s3");
    row("%s", 3, "%s0003");
    row("%n%x", 3, "%n%x0003");
    row("100%", 3, "100%0003");
    row("%%d", 3, "%3");
    row("%-4d", 3, "%-4d0003");
    row("%04", 3, "%040003");
    row("%04i", 3, "%04i0003");
}

void CoreNamingTest::numberField()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdString(withNumber(text.toStdString(), number)), expected);
}

void CoreNamingTest::templateText_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *given, const char *expected) {
        QTest::newRow(given) << QString::fromLatin1(given) << QString::fromLatin1(expected);
    };
    row("scan", "scan");
    row("scan.png", "scan");
    row("scan.PNG", "scan");
    row("scan.jpg", "scan.jpg");
    row("../../etc/scan", "scan");
    row("/abs/scan%d", "scan%d");
    row("folder/", "");
    row("a\nb\tc\x7f", "abc");
    row(" spaced ", " spaced ");
    row(".png", "");
    row("", "");
}

void CoreNamingTest::templateText()
{
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdString(cleanTemplate(given.toStdString(), ".png")), expected);
}

void CoreNamingTest::path_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("tempName");
    QTest::addColumn<bool>("forSingle");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *output, const char *tempName, bool forSingle, int position, int count,
                        const char *expected) {
        QTest::newRow(expected) << QString::fromLatin1(output) << QString::fromLatin1(tempName) << forSingle << position
                                << count << QString::fromLatin1(expected);
    };
    row("/o/a.png", "", false, 1, 1, "/o/a.png");
    row("/o/a.png", "", true, 1, 1, "/o/a.png");
    row("/o/a.png", "", false, 1, 2, "/o/a0001.png");
    row("/o/a.PNG", "", false, 10000, 10000, "/o/a10000.PNG");
    row("/o.p/b.c.tif", "", false, 2, 3, "/o.p/b.c0002.tif");
    row("c.eps", "", false, 3, 3, "c0003.eps");
    row("/o/.gif", "", false, 1, 2, "/o/0001.gif");
    row("/o/d.png", "scan%03d", false, 1, 1, "/o/d.png");
    row("/o/d.png", "scan%03d", true, 1, 1, "/o/scan001.png");
    row("/o/d.png", "scan%03d", false, 2, 3, "/o/scan002.png");
    row("/o/d.png", "only", true, 1, 1, "/o/only.png");
    row("/o/d.png", "each", false, 2, 3, "/o/each0002.png");
    row("/o/d.png", "../up%d.png", false, 2, 3, "/o/up2.png");
    row("/o/e.png", "x/", false, 2, 3, "/o/e0002.png");
}

void CoreNamingTest::path()
{
    QFETCH(QString, output);
    QFETCH(QString, tempName);
    QFETCH(bool, forSingle);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QString, expected);
    Options options;
    options.outputPath = output.toStdString();
    options.tempName = tempName.toStdString();
    options.tempNameForSingle = forSingle;
    QCOMPARE(QString::fromStdString(pageFilePath(options, position, count)), expected);
}

void CoreNamingTest::depth_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<int>("requested");
    QTest::addColumn<int>("compression");
    QTest::addColumn<int>("expected");
    const int colour = static_cast<int>(ColourDepth::Colour);
    const int gray = static_cast<int>(ColourDepth::Gray);
    const int mono = static_cast<int>(ColourDepth::Mono);
    const auto row = [](const char *extension, int requested, int compression, int expected) {
        QTest::addRow("%s %d %d", extension, requested, compression)
            << QString::fromLatin1(extension) << requested << compression << expected;
    };
    for (const char *free : {".png", ".tga", ".gif", ".bmp", ".pnm", ".tif", ".tiff"}) {
        for (const int requested : {colour, gray, mono}) {
            row(free, requested, 0, requested);
        }
    }
    for (const char *jpeg : {".jpg", ".jpeg", ".jpe"}) {
        for (const int requested : {colour, gray, mono}) {
            row(jpeg, requested, 0, requested == mono ? gray : requested);
        }
    }
    for (const int requested : {colour, gray, mono}) {
        row(".pbm", requested, 0, mono);
        row(".pgm", requested, 0, gray);
        row(".ppm", requested, 0, colour);
        for (const int fax : {3, 4, 88882, 88883, 88884}) {
            row(".tif", requested, fax, mono);
        }
        for (const int other : {1, 5, 32773}) {
            row(".tiff", requested, other, requested);
        }
        row(".png", requested, 4, requested);
    }
}

void CoreNamingTest::depth()
{
    QFETCH(QString, extension);
    QFETCH(int, requested);
    QFETCH(int, compression);
    QFETCH(int, expected);
    Options options;
    options.colourDepth = static_cast<ColourDepth>(requested);
    if (compression != 0) {
        options.compression = static_cast<Compression>(compression);
    }
    QCOMPARE(static_cast<int>(pictureDepth(options, extension.toStdString())), expected);
}

void CoreNamingTest::size_data()
{
    QTest::addColumn<QList<int>>("requested"); // width, height, xres, yres, compression; 0: absent
    QTest::addColumn<QList<int>>("expected");  // width, height
    QTest::addColumn<QList<double>>("tags");
    using Ints = QList<int>;
    using Tags = QList<double>;
    // The page is US Letter, 612 x 792 points.
    QTest::newRow("default") << Ints{0, 0, 0, 0, 0} << Ints{1275, 1650} << Tags{150, 150};
    QTest::newRow("one resolution") << Ints{0, 0, 72, 0, 0} << Ints{612, 792} << Tags{72, 72};
    QTest::newRow("other resolution") << Ints{0, 0, 0, 300, 0} << Ints{2550, 3300} << Tags{300, 300};
    QTest::newRow("two resolutions") << Ints{0, 0, 204, 98, 0} << Ints{1734, 1078} << Tags{204, 98};
    QTest::newRow("part of a pixel") << Ints{0, 0, 73, 0, 0} << Ints{621, 803} << Tags{73, 73};
    QTest::newRow("width") << Ints{306, 0, 0, 0, 0} << Ints{306, 396} << Tags{36, 36};
    QTest::newRow("height") << Ints{0, 1000, 0, 0, 0} << Ints{773, 1000} << Tags{1000 * 72 / 792.0, 1000 * 72 / 792.0};
    QTest::newRow("both") << Ints{500, 500, 0, 0, 0} << Ints{500, 500} << Tags{500 * 72 / 612.0, 500 * 72 / 792.0};
    QTest::newRow("size wins") << Ints{306, 0, 200, 100, 0} << Ints{306, 396} << Tags{200, 100};
    QTest::newRow("class F low") << Ints{0, 0, 0, 0, 88882} << Ints{1728, 1075} << Tags{204, 98};
    QTest::newRow("class F fine") << Ints{300, 300, 72, 72, 88883} << Ints{1728, 2149} << Tags{204, 196};
}

void CoreNamingTest::size()
{
    QFETCH(QList<int>, requested);
    QFETCH(QList<int>, expected);
    QFETCH(QList<double>, tags);
    Options options;
    options.outputPath = "a.tif";
    const auto set = [&requested](std::optional<int> &option, int index) {
        if (requested[index] > 0) {
            option = requested[index];
        }
    };
    set(options.width, 0);
    set(options.height, 1);
    set(options.xres, 2);
    set(options.yres, 3);
    if (requested[4] != 0) {
        options.compression = static_cast<Compression>(requested[4]);
    }
    const PictureSize size = pictureSize(options, 1, 612, 792);
    QCOMPARE(size.width, expected[0]);
    QCOMPARE(size.height, expected[1]);
    QVERIFY(std::abs(size.xtag - tags[0]) < 0.01);
    QVERIFY(std::abs(size.ytag - tags[1]) < 0.01);
}

void CoreNamingTest::tooLarge_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("xres");
    QTest::addColumn<double>("page");
    QTest::addColumn<bool>("fits");
    QTest::newRow("longest side") << 20000 << 0 << 7200.0 << false; // the area is too large
    QTest::newRow("side") << 20001 << 0 << 612.0 << false;
    QTest::newRow("largest page at default") << 0 << 0 << 14400.0 << false;
    QTest::newRow("largest page at low resolution") << 0 << 72 << 14400.0 << true;
    QTest::newRow("absurd resolution") << 0 << 2147483647 << 612.0 << false;
    QTest::newRow("hair-thin page") << 0 << 0 << 1e-300 << true;
    QTest::newRow("hair-thin page, width") << 100 << 0 << 1e-300 << true;
}

void CoreNamingTest::tooLarge()
{
    QFETCH(int, width);
    QFETCH(int, xres);
    QFETCH(double, page);
    QFETCH(bool, fits);
    Options options;
    options.outputPath = "a.png";
    if (width > 0) {
        options.width = width;
    }
    if (xres > 0) {
        options.xres = xres;
    }
    try {
        const PictureSize size = pictureSize(options, 1, page, page);
        QVERIFY(fits);
        QVERIFY(size.width >= 1 && size.height >= 1);
    } catch (const Failure &failure) {
        QVERIFY(!fits);
        QCOMPARE(failure.status(), ExitStatus::Limit);
    }
}

void CoreNamingTest::paper_data()
{
    QTest::addColumn<QList<int>>("requested"); // width, height, xres, yres
    QTest::addColumn<QList<int>>("expected");  // empty: none
    using Ints = QList<int>;
    QTest::newRow("nothing requested") << Ints{0, 0, 300, 300} << Ints{};
    QTest::newRow("both") << Ints{960, 480, 0, 0} << Ints{720, 360};
    QTest::newRow("width") << Ints{816, 0, 0, 0} << Ints{612, 792};
    QTest::newRow("height") << Ints{0, 1056, 0, 0} << Ints{612, 792};
    QTest::newRow("by resolution") << Ints{1000, 1000, 200, 100} << Ints{360, 720};
    QTest::newRow("a point at least") << Ints{1, 1, 9600, 9600} << Ints{1, 1};
}

void CoreNamingTest::paper()
{
    QFETCH(QList<int>, requested);
    QFETCH(QList<int>, expected);
    Options options;
    if (requested[0] > 0) {
        options.width = requested[0];
    }
    if (requested[1] > 0) {
        options.height = requested[1];
    }
    if (requested[2] > 0) {
        options.xres = requested[2];
    }
    if (requested[3] > 0) {
        options.yres = requested[3];
    }
    const std::optional<PaperSize> paper = paperSize(options, 612, 792);
    QCOMPARE(paper.has_value(), !expected.isEmpty());
    if (paper) {
        QCOMPARE(paper->width, expected[0]);
        QCOMPARE(paper->height, expected[1]);
    }
    options.width = 1'000'000'000;
    QVERIFY_THROWS_EXCEPTION(Failure, paperSize(options, 612, 792));
}

QTEST_APPLESS_MAIN(CoreNamingTest)
#include "core_naming_test.moc"
