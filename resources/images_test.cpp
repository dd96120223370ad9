// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColor>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QResource>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstdlib>

namespace {

constexpr QLatin1String imageFolder(":/MyImage/Image/");

QImage loadImage(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Mean difference of the two images per colour channel, 0 to 255. Both have the same size.
double meanDifference(const QImage &a, const QImage &b)
{
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar *left = a.constScanLine(y);
        const uchar *right = b.constScanLine(y);
        for (int x = 0; x < 4 * a.width(); ++x) {
            sum += std::abs(left[x] - right[x]);
        }
    }
    return static_cast<double>(sum) / (4.0 * a.width() * a.height());
}

double linearChannel(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linearChannel(colour.redF()) + 0.7152 * linearChannel(colour.greenF()) +
           0.0722 * linearChannel(colour.blueF());
}

/// Contrast of dark text on a lighter ground, 1 to 21; 4.5 is the usual least for body text.
double contrast(const QColor &ground, const QColor &text)
{
    return (luminance(ground) + 0.05) / (luminance(text) + 0.05);
}

} // namespace

/// The image collection as it is compiled in: sizes, storage, and that it shows what the drawings show.
class ImagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sizes_data();
    void sizes();
    void storedUncompressed_data();
    void storedUncompressed();
    void showsItsDrawing_data();
    void showsItsDrawing();
    void holdsNothingElse();
    void backgroundKeepsTextReadable_data();
    void backgroundKeepsTextReadable();
    void pairsDiffer_data();
    void pairsDiffer();
    void collectionName();

private:
    QTemporaryDir m_rendered;
};

void ImagesTest::initTestCase()
{
    QVERIFY(m_rendered.isValid());
    QVERIFY2(
        !QStandardPaths::findExecutable(QStringLiteral("rsvg-convert")).isEmpty(),
        "rsvg-convert is missing (scripts/install-packages test)");
    QCOMPARE(QProcess::execute(QStringLiteral(QUORRA_RENDER_SCRIPT), {m_rendered.path()}), 0);
}

void ImagesTest::sizes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    const auto row = [](const char *name, int width, int height) {
        QTest::newRow(name) << QString::fromLatin1(name) << QSize(width, height);
    };
    row("main.png", 128, 128);
    row("Top.png", 200, 70);
    row("bg1.png", 10, 10);
    row("listwidget1.png", 16, 16);
    row("listwidget2.png", 48, 48);
    row("add.png", 48, 48);
    row("delete.png", 48, 48);
    row("clear.png", 48, 48);
    row("setting.png", 48, 48);
    row("start.png", 48, 48);
    row("stop.png", 48, 48);
    row("about.png", 48, 48);
    row("output.png", 48, 48);
}

void ImagesTest::sizes()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QCOMPARE(QImage(imageFolder + name).size(), size);
}

void ImagesTest::storedUncompressed_data()
{
    sizes_data();
}

void ImagesTest::storedUncompressed()
{
    QFETCH(QString, name);
    const QResource resource(imageFolder + name);
    QVERIFY(resource.isValid());
    QCOMPARE(resource.compressionAlgorithm(), QResource::NoCompression);
}

void ImagesTest::showsItsDrawing_data()
{
    sizes_data();
}

void ImagesTest::showsItsDrawing()
{
    QFETCH(QString, name);
    const QImage shipped = loadImage(imageFolder + name);
    const QImage rendered = loadImage(m_rendered.filePath(name));
    QCOMPARE(shipped.size(), rendered.size());
    // Renderers differ in how they smooth an edge, not in what they draw.
    QVERIFY2(meanDifference(shipped, rendered) < 2.0, "run resources/render-artwork");
}

void ImagesTest::holdsNothingElse()
{
    QCOMPARE(QDir(imageFolder).entryList().size(), 13);
    QCOMPARE(QDir(m_rendered.path()).entryList(QDir::Files).size(), 13);
}

void ImagesTest::backgroundKeepsTextReadable_data()
{
    QTest::addColumn<QColor>("text");
    QTest::newRow("black") << QColor(Qt::black);
    QTest::newRow("text of the About box") << QColor(QStringLiteral("#00007f"));
    QTest::newRow("links") << QColor(QStringLiteral("#0000ff"));
}

void ImagesTest::backgroundKeepsTextReadable()
{
    QFETCH(QColor, text);
    const QImage background(imageFolder + QLatin1String("bg1.png"));
    for (int y = 0; y < background.height(); ++y) {
        for (int x = 0; x < background.width(); ++x) {
            const QColor ground = background.pixelColor(x, y);
            QCOMPARE(ground.alpha(), 255);
            QVERIFY(contrast(ground, text) > 4.5);
        }
    }
}

void ImagesTest::pairsDiffer_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::newRow("start and stop") << QStringLiteral("start.png") << QStringLiteral("stop.png");
    QTest::newRow("add and delete") << QStringLiteral("add.png") << QStringLiteral("delete.png");
    QTest::newRow("delete and clear") << QStringLiteral("delete.png") << QStringLiteral("clear.png");
}

void ImagesTest::pairsDiffer()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    const QImage left = loadImage(imageFolder + one);
    const QImage right = loadImage(imageFolder + other);
    QVERIFY(meanDifference(left, right) > 5.0);
}

void ImagesTest::collectionName()
{
    // Nothing has called this before: the collection registers itself before main.
    Q_CLEANUP_RESOURCE(Halvexrc);
    QVERIFY(!QResource(imageFolder + QLatin1String("main.png")).isValid());
    Q_INIT_RESOURCE(Halvexrc);
    QVERIFY(QResource(imageFolder + QLatin1String("main.png")).isValid());
}

QTEST_GUILESS_MAIN(ImagesTest)
#include "images_test.moc"
