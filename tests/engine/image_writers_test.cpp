// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "image/encode_picture.h"
#include "image/picture_writer.h"
#include "image/tiff_writer.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <tiffio.h>

#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

using namespace quorra;

namespace {

using MakeWriter = std::unique_ptr<PictureWriter> (*)(ByteSink, const PictureInfo &);

std::unique_ptr<PictureWriter> makePng(ByteSink sink, const PictureInfo &info)
{
    return makePngWriter(std::move(sink), info);
}

std::unique_ptr<PictureWriter> makeJpeg(ByteSink sink, const PictureInfo &info)
{
    return makeJpegWriter(std::move(sink), info);
}

PictureInfo infoOf(int width, int height, ColourDepth depth)
{
    PictureInfo info;
    info.size.width = width;
    info.size.height = height;
    info.depth = depth;
    return info;
}

/// A picture whose adjacent bytes differ, so that it compresses badly and the sink is called early and often.
struct Noise
{
    std::vector<std::uint8_t> bytes;
    Raster raster;

    Noise(int width, int height, ColourDepth depth, std::uint8_t mask = 0xff)
        : bytes(rowBytes(depth, width) * static_cast<std::size_t>(height))
    {
        std::uint32_t state = 1;
        for (std::uint8_t &byte : bytes) {
            state = state * 1664525 + 1013904223;
            byte = static_cast<std::uint8_t>(state >> 24 & mask);
        }
        raster = {width, height, depth, rowBytes(depth, width), bytes.data(), nullptr};
    }
};

QImage decoded(const model::EncodedPicture &picture)
{
    return QImage::fromData(picture.bytes, picture.mimeType == "image/png" ? "PNG" : "JPG");
}

int ownHandlerCalls = 0;

void ownHandler(const char *, const char *, va_list)
{
    ++ownHandlerCalls;
}

/// Sets the process-wide handlers of TIFF messages while the object exists.
struct OwnHandlers
{
    TIFFErrorHandler errors = TIFFSetErrorHandler(ownHandler);
    TIFFErrorHandler warnings = TIFFSetWarningHandler(ownHandler);

    OwnHandlers() = default;
    OwnHandlers(const OwnHandlers &) = delete;
    OwnHandlers &operator=(const OwnHandlers &) = delete;

    ~OwnHandlers()
    {
        TIFFSetErrorHandler(errors);
        TIFFSetWarningHandler(warnings);
    }
};

} // namespace

Q_DECLARE_METATYPE(MakeWriter)
Q_DECLARE_METATYPE(quorra::ColourDepth)

class ImageWritersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handsOverWhatTheSinkThrows_data()
    {
        QTest::addColumn<MakeWriter>("make");
        QTest::addColumn<int>("goodCalls");
        for (const int goodCalls : {0, 1, 3}) {
            QTest::addRow("PNG, fails after %d calls", goodCalls) << MakeWriter{makePng} << goodCalls;
            QTest::addRow("JPEG, fails after %d calls", goodCalls) << MakeWriter{makeJpeg} << goodCalls;
        }
    }

    void handsOverWhatTheSinkThrows()
    {
        QFETCH(MakeWriter, make);
        QFETCH(int, goodCalls);
        const Noise noise(600, 600, ColourDepth::Colour);
        int calls = 0;
        const ByteSink sink = [&calls, goodCalls](std::string_view) {
            if (++calls > goodCalls) {
                throw std::runtime_error("full");
            }
        };
        const auto write = [&] {
            const auto writer = make(sink, infoOf(600, 600, ColourDepth::Colour));
            writer->addRows(noise.raster);
            writer->finish();
        };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, write());
        QCOMPARE(calls, goodCalls + 1); // a sink that has failed is left alone
    }

    // With the leak sanitizer, this also checks that a failing constructor frees the library's memory.
    void refusesSizesThatTheFormatDoesNotKnow()
    {
        const ByteSink drop = [](std::string_view) {};
        QVERIFY_THROWS_EXCEPTION(Failure, makeJpegWriter(drop, infoOf(70000, 10, ColourDepth::Gray)));
        QVERIFY_THROWS_EXCEPTION(Failure, makePngWriter(drop, infoOf(0, 10, ColourDepth::Gray)));
    }

    void embedsDrawingsWithoutLoss_data()
    {
        QTest::addColumn<ColourDepth>("depth");
        QTest::newRow("colour") << ColourDepth::Colour;
        QTest::newRow("gray") << ColourDepth::Gray;
        QTest::newRow("mono") << ColourDepth::Mono;
    }

    void embedsDrawingsWithoutLoss()
    {
        QFETCH(ColourDepth, depth);
        const bool mono = depth == ColourDepth::Mono;
        const Noise few(90, 70, depth, mono ? 0xff : 0xc0);
        const PixelBox part{13, 5, 50, 40};
        const model::EncodedPicture picture = encodePicture(few.raster, part);
        QCOMPARE(picture.mimeType, QByteArray("image/png"));
        QCOMPARE(picture.widthPixels, 50);
        QCOMPARE(picture.heightPixels, 40);
        const QImage image = decoded(picture);
        QCOMPARE(image.size(), QSize(50, 40));
        for (int y = 0; y < part.height; ++y) {
            const std::uint8_t *row = few.raster.row(part.top + y);
            for (int x = 0; x < part.width; ++x) {
                const int at = part.left + x;
                const int gray = mono ? ((row[at / 8] >> (7 - at % 8) & 1) != 0 ? 255 : 0) : row[at];
                const QColor expected = depth == ColourDepth::Colour
                                            ? QColor(row[at * 3], row[at * 3 + 1], row[at * 3 + 2])
                                            : QColor(gray, gray, gray);
                QCOMPARE(image.pixelColor(x, y), expected);
            }
        }
    }

    void embedsPhotographsAsJpeg()
    {
        const Noise many(200, 100, ColourDepth::Colour);
        const model::EncodedPicture picture = encodePicture(many.raster, {20, 10, 150, 80});
        QCOMPARE(picture.mimeType, QByteArray("image/jpeg"));
        QCOMPARE(decoded(picture).size(), QSize(150, 80));
    }

    // The pictures of a document are kept in memory: they must not have spare capacity.
    void keepsNoMoreMemoryThanTheBytes()
    {
        const std::vector<std::uint8_t> white(std::size_t{1000} * 1000, 0xff);
        const Raster raster{1000, 1000, ColourDepth::Gray, 1000, white.data(), nullptr};
        const model::EncodedPicture picture = encodePicture(raster, {0, 0, 1000, 1000});
        QVERIFY(!picture.bytes.isEmpty());
        QVERIFY2(picture.bytes.capacity() < 10'000, qPrintable(QString::number(picture.bytes.capacity())));
    }

    void givesNoBytesForAPictureThatCannotBeEncoded()
    {
        const Noise wide(70000, 6, ColourDepth::Gray);
        QVERIFY(encodePicture(wide.raster, {0, 0, 70000, 6}).bytes.isEmpty());
    }

    // Files are written by several threads in parallel: process-wide handlers must not change.
    void leavesTheProcessItsTiffMessageHandlers()
    {
        const QTemporaryDir folder;
        const OwnHandlers own;
        const Noise noise(64, 64, ColourDepth::Gray);
        OutputFile file(folder.filePath(QStringLiteral("out.tiff")).toStdString());
        {
            TiffFile tiff(file, Compression::Group4, 1);
            tiff.beginPage(infoOf(64, 64, ColourDepth::Gray));
            QVERIFY_THROWS_EXCEPTION(
                Failure, tiff.addRows(noise.raster)); // a fax has no gray: the library has a message
        }
        QVERIFY(TIFFSetErrorHandler(ownHandler) == ownHandler);
        QVERIFY(TIFFSetWarningHandler(ownHandler) == ownHandler);
        QCOMPARE(ownHandlerCalls, 0);
    }
};

QTEST_GUILESS_MAIN(ImageWritersTest)
#include "image_writers_test.moc"
