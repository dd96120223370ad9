// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/encode_picture.h"

#include "base/failure.h"
#include "image/picture_writer.h"

#include <unordered_set>
#include <vector>

namespace quorra {

namespace {

// In documents a small size matters more than the finest detail: chroma subsampling, no second pass.
constexpr JpegSettings embeddedJpeg{88, false, false};
constexpr std::size_t manyColours = 300;
constexpr std::size_t manyGrays = 120;
constexpr int sampleStep = 3; // pixels

/// The pixels of a mono part, one byte per pixel.
Raster asGray(const Raster &raster, const PixelBox &part)
{
    const auto stride = static_cast<std::size_t>(part.width);
    const auto bytes = std::make_shared<std::vector<std::uint8_t>>(stride * static_cast<std::size_t>(part.height));
    for (int y = 0; y < part.height; ++y) {
        const std::uint8_t *from = raster.row(part.top + y);
        std::uint8_t *to = bytes->data() + static_cast<std::size_t>(y) * stride;
        for (int x = 0; x < part.width; ++x) {
            const int at = part.left + x;
            to[x] = (from[at / 8] >> (7 - at % 8) & 1) != 0 ? 0xff : 0;
        }
    }
    return {part.width, part.height, ColourDepth::Gray, stride, bytes->data(), bytes};
}

/// The part as a gray or colour raster. It shares the pixels if possible.
Raster wholeBytes(const Raster &raster, const PixelBox &part)
{
    if (raster.depth == ColourDepth::Mono) {
        return asGray(raster, part);
    }
    const std::uint8_t *first = raster.row(part.top) + rowBytes(raster.depth, part.left);
    return {part.width, part.height, raster.depth, raster.stride, first, raster.owner};
}

/// Photographs have more colours than drawings.
bool isPhotograph(const Raster &raster)
{
    std::unordered_set<std::uint32_t> seen;
    const std::size_t channels = rowBytes(raster.depth, 1);
    const std::size_t many = raster.depth == ColourDepth::Colour ? manyColours : manyGrays;
    for (int y = 0; y < raster.rows; y += sampleStep) {
        const std::uint8_t *pixel = raster.row(y);
        for (int x = 0; x < raster.width; x += sampleStep, pixel += sampleStep * channels) {
            std::uint32_t value = 0;
            for (std::size_t c = 0; c < channels; ++c) {
                value = value << 8U | pixel[c];
            }
            seen.insert(value);
        }
        if (seen.size() > many) {
            return true;
        }
    }
    return false;
}

} // namespace

model::EncodedPicture encodePicture(const Raster &raster, const PixelBox &part)
{
    const Raster pixels = wholeBytes(raster, part);
    const bool photograph = isPhotograph(pixels);
    model::EncodedPicture picture;
    picture.widthPixels = part.width;
    picture.heightPixels = part.height;
    picture.mimeType = photograph ? "image/jpeg" : "image/png";
    const ByteSink append = [&picture](std::string_view bytes) {
        picture.bytes.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
    };
    PictureInfo info;
    info.size.width = part.width;
    info.size.height = part.height;
    info.depth = pixels.depth;
    try {
        const auto writer = photograph ? makeJpegWriter(append, info, embeddedJpeg) : makePngWriter(append, info);
        writer->addRows(pixels);
        writer->finish();
    } catch (const Failure &) {
        picture.bytes.clear();
    }
    picture.bytes.squeeze(); // the pictures of a whole document may be kept in memory
    return picture;
}

} // namespace quorra
