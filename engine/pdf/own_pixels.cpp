// SPDX-License-Identifier: GPL-3.0-or-later
#include "own_pixels.h"

#include "image/encode_picture.h"
#include "library_versions.h"

#include <GfxState.h>
#include <PDFDoc.h>
#include <Stream.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace quorra {

namespace {

struct Thresholds
{
    double maxPixels = 12e6;             ///< of an image; larger ones cost more memory than rendering the page
    qsizetype maxJpeg = 8 * 1024 * 1024; ///< bytes of a JPEG file that is embedded as it is
    double maxCut = 0.5;                 ///< pixels that may be missing at each side of an image shown as a whole
};
constexpr Thresholds thresholds;

/// The dictionary entries of an image that matter here.
struct Image
{
    Object stream;
    int width = 0;
    int height = 0;
    int bits = 0;
    std::unique_ptr<GfxColorSpace> space;
};

int intOf(Dict *dict, const char *name)
{
    const Object value = dict->lookup(name);
    return value.isInt() ? value.getInt() : 0;
}

/// The image; without a colour space if it is none that can be read here.
Image imageOf(PDFDoc &doc, const model::ImageSource &source)
{
    Image image;
    image.stream = doc.getXRef()->fetch(source.object, source.generation);
    if (!image.stream.isStream()) {
        return image;
    }
    Dict *dict = image.stream.streamGetDict();
    image.width = intOf(dict, "Width");
    image.height = intOf(dict, "Height");
    image.bits = intOf(dict, "BitsPerComponent");
    const bool known = image.width > 0 && image.height > 0 && image.bits > 0 && image.bits <= 16 &&
                       static_cast<double>(image.width) * image.height <= thresholds.maxPixels &&
                       dict->lookup("SMaskInData").isNull();
    Object space = dict->lookup("ColorSpace");
    if (known && !space.isNull()) {
        const PDFRectangle page(0, 0, 1, 1);
        GfxState state(1, 1, &page, 0, false);
        // A raw pointer or, in newer versions of the library, a std::unique_ptr.
        image.space = std::unique_ptr<GfxColorSpace>(GfxColorSpace::parse(nullptr, &space, nullptr, &state));
    }
    return image;
}

/// Whether every program shows the JPEG file as a PDF reader does: of the usual kinds, with the size and number of
/// colours that the PDF file says, and without an orientation of its own.
bool isUsualJpeg(const QByteArray &bytes, const Image &image)
{
    constexpr int startOfScan = 0xda;
    constexpr int exif = 0xe1;
    constexpr qsizetype frameLength = 10; // of a frame's header up to its number of components
    const auto byte = [&bytes](qsizetype at) { return static_cast<int>(static_cast<unsigned char>(bytes[at])); };
    const auto word = [&byte](qsizetype at) { return byte(at) << 8 | byte(at + 1); };
    for (qsizetype at = 2; at + frameLength < bytes.size() && byte(at) == 0xff; at += 2 + word(at + 2)) {
        const int marker = byte(at + 1);
        if (marker == startOfScan || marker == exif) {
            return false;
        }
        const bool isFrame = marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
        if (isFrame) {
            return marker <= 0xc2 && byte(at + 4) == 8 && word(at + 5) == image.height && word(at + 7) == image.width &&
                   byte(at + 9) == image.space->getNComps();
        }
    }
    return false;
}

/// The bytes of a JPEG file that needs nothing but its own decoder; otherwise none.
QByteArray jpegOf(Image &image)
{
    Stream *stream = image.stream.getStream();
    Dict *dict = image.stream.streamGetDict();
    const bool plain = stream->getKind() == strDCT && dict->lookup("Decode").isNull() &&
                       dict->lookup("DecodeParms").isNull() && image.bits == 8 &&
                       (image.space->getMode() == csDeviceRGB || image.space->getMode() == csDeviceGray ||
                        (image.space->getMode() == csICCBased && image.space->getNComps() != 4));
    Stream *coded = plain ? stream->getNextStream() : nullptr;
    QByteArray bytes;
    if (!coded) {
        return bytes;
    }
    coded->reset();
    for (int byte = coded->getChar(); byte != EOF; byte = coded->getChar()) {
        bytes.append(static_cast<char>(byte));
        if (bytes.size() > thresholds.maxJpeg) {
            return {};
        }
    }
    coded->close();
    return bytes.startsWith("\xff\xd8") && isUsualJpeg(bytes, image) ? bytes : QByteArray();
}

/// Where the pixels of an image go when it is rotated.
struct Orientation
{
    int width = 0; ///< of the image in the file
    int height = 0;
    int quarters = 0; ///< clockwise
    bool mirrored = false;

    int shownWidth() const { return quarters % 2 == 0 ? width : height; }
    int shownHeight() const { return quarters % 2 == 0 ? height : width; }

    std::size_t place(int x, int y) const
    {
        const int along = mirrored ? width - 1 - x : x;
        int column = along;
        int row = y;
        switch (quarters) {
        case 1:
            column = height - 1 - y;
            row = along;
            break;
        case 2:
            column = width - 1 - along;
            row = height - 1 - y;
            break;
        case 3:
            column = y;
            row = width - 1 - along;
            break;
        default:
            break;
        }
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(shownWidth()) +
               static_cast<std::size_t>(column);
    }
};

Raster decoded(Image &image, const Orientation &orientation)
{
    Object decode = image.stream.streamGetDict()->lookup("Decode");
    const int components = image.space->getNComps();
    const bool gray = image.space->getMode() == csDeviceGray || image.space->getMode() == csCalGray ||
                      (image.space->getMode() == csICCBased && components == 1);
    const std::unique_ptr<GfxImageColorMap> colours = colourMapOf(image.bits, &decode, std::move(image.space));
    if (!colours->isOk()) {
        return {};
    }
    const ColourDepth depth = gray ? ColourDepth::Gray : ColourDepth::Colour;
    const std::size_t channels = gray ? 1 : 3;
    const auto width = static_cast<std::size_t>(image.width);
    const auto pixels = std::make_shared<std::vector<std::uint8_t>>(
        channels * width * static_cast<std::size_t>(image.height), std::uint8_t{0xff});
    std::vector<std::uint8_t> row(channels * width);
    ImageStream lines(image.stream.getStream(), image.width, components, image.bits);
    if (!rewind(lines)) {
        return {};
    }
    for (int y = 0; y < image.height; ++y) {
        unsigned char *line = lines.getLine();
        if (!line) {
            break; // the rest of a damaged image is white
        }
        if (gray) {
            colours->getGrayLine(line, row.data(), image.width);
        } else {
            colours->getRGBLine(line, row.data(), image.width);
        }
        for (int x = 0; x < image.width; ++x) {
            std::copy_n(
                row.data() + channels * static_cast<std::size_t>(x), channels,
                pixels->data() + channels * orientation.place(x, y));
        }
    }
    lines.close();
    const int shownWidth = orientation.shownWidth();
    return {shownWidth,     orientation.shownHeight(),
            depth,          channels * static_cast<std::size_t>(shownWidth),
            pixels->data(), pixels};
}

/// The pixels of the whole image that the shown part covers.
PixelBox partOf(const Orientation &orientation, const Box &whole, const Box &shown)
{
    const auto pixel = [](double at, double from, double length, int pixels) {
        return std::clamp(static_cast<int>(std::lround((at - from) / length * pixels)), 0, pixels);
    };
    const int left = pixel(shown.left, whole.left, whole.width(), orientation.shownWidth());
    const int right = pixel(shown.right, whole.left, whole.width(), orientation.shownWidth());
    const int top = pixel(shown.top, whole.top, whole.height(), orientation.shownHeight());
    const int bottom = pixel(shown.bottom, whole.top, whole.height(), orientation.shownHeight());
    return {left, top, right - left, bottom - top};
}

} // namespace

model::EncodedPicture ownPixels(PDFDoc &doc, const model::ImageSource &stream, const Box &shown)
{
    Image image = imageOf(doc, stream);
    if (!image.space || stream.whole.isEmpty()) {
        return {};
    }
    const Orientation orientation{image.width, image.height, stream.rotation / 90 % 4, stream.mirrored};
    const PixelBox part = partOf(orientation, stream.whole, shown);
    if (part.width < 1 || part.height < 1) {
        return {};
    }
    const bool whole = part.width >= orientation.shownWidth() - 2 * thresholds.maxCut &&
                       part.height >= orientation.shownHeight() - 2 * thresholds.maxCut;
    if (whole && stream.rotation == 0 && !stream.mirrored) {
        const QByteArray jpeg = jpegOf(image);
        if (!jpeg.isEmpty()) {
            return {jpeg, "image/jpeg", image.width, image.height};
        }
    }
    const Raster raster = decoded(image, orientation);
    return raster.data ? encodePicture(raster, part) : model::EncodedPicture{};
}

} // namespace quorra
