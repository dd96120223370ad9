// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/writers/encode_picture.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <unordered_set>
#include <vector>

#include <jpeglib.h>
#include <png.h>

namespace quorra {

namespace {

constexpr int jpegQuality = 88;
constexpr std::size_t manyColours = 300;
constexpr std::size_t manyGrays = 120;
constexpr int sampleStep = 3; // pixels

// The part as rows of whole bytes: one for gray and mono, three for colour.
std::vector<std::uint8_t> wholeBytes(const Raster &raster, const PixelBox &part)
{
    const int channels = raster.depth == ColourDepth::Colour ? 3 : 1;
    const auto rowLength = static_cast<std::size_t>(part.width) * static_cast<std::size_t>(channels);
    std::vector<std::uint8_t> bytes(rowLength * static_cast<std::size_t>(part.height));
    for (int y = 0; y < part.height; ++y) {
        const std::uint8_t *from = raster.row(part.top + y);
        std::uint8_t *to = bytes.data() + static_cast<std::size_t>(y) * rowLength;
        if (raster.depth != ColourDepth::Mono) {
            std::copy_n(from + static_cast<std::ptrdiff_t>(part.left) * channels, rowLength, to);
            continue;
        }
        for (int x = 0; x < part.width; ++x) {
            const int at = part.left + x;
            to[x] = (from[at / 8] >> (7 - at % 8) & 1) != 0 ? 0xff : 0;
        }
    }
    return bytes;
}

// Photographs have more colours than anything drawn.
bool isPhotograph(const std::vector<std::uint8_t> &bytes, int width, int height, int channels)
{
    std::unordered_set<std::uint32_t> seen;
    const std::size_t many = channels == 3 ? manyColours : manyGrays;
    for (int y = 0; y < height; y += sampleStep) {
        for (int x = 0; x < width; x += sampleStep) {
            std::uint32_t value = 0;
            for (int c = 0; c < channels; ++c) {
                const int at = (y * width + x) * channels + c;
                value = value << 8U | bytes[static_cast<std::size_t>(at)];
            }
            seen.insert(value);
        }
        if (seen.size() > many) {
            return true;
        }
    }
    return false;
}

QByteArray asPng(const std::vector<std::uint8_t> &bytes, int width, int height, int channels)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = channels == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_GRAY;
    image.flags = PNG_IMAGE_FLAG_FAST;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    QByteArray packed(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (png_image_write_to_memory(&image, packed.data(), &size, 0, bytes.data(), 0, nullptr) == 0) {
        png_image_free(&image);
        return {};
    }
    packed.truncate(static_cast<qsizetype>(size));
    return packed;
}

struct JpegErrors
{
    jpeg_error_mgr manager{}; // must come first: the library hands back its address
    std::jmp_buf escape{};
};

QByteArray asJpeg(const std::vector<std::uint8_t> &bytes, int width, int height, int channels)
{
    JpegErrors errors;
    jpeg_compress_struct jpeg{};
    unsigned char *packed = nullptr;
    unsigned long size = 0;
    jpeg.err = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = [](j_common_ptr common) {
        std::longjmp(reinterpret_cast<JpegErrors *>(common->err)->escape, 1);
    };
    errors.manager.output_message = [](j_common_ptr) {};
    if (setjmp(errors.escape) != 0) {
        jpeg_destroy_compress(&jpeg);
        std::free(packed);
        return {};
    }
    jpeg_create_compress(&jpeg);
    jpeg_mem_dest(&jpeg, &packed, &size);
    jpeg.image_width = static_cast<JDIMENSION>(width);
    jpeg.image_height = static_cast<JDIMENSION>(height);
    jpeg.input_components = channels;
    jpeg.in_color_space = channels == 3 ? JCS_RGB : JCS_GRAYSCALE;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, jpegQuality, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    while (jpeg.next_scanline < jpeg.image_height) {
        auto *row = const_cast<JSAMPROW>(bytes.data()) +
                    static_cast<std::size_t>(jpeg.next_scanline) * static_cast<std::size_t>(width * channels);
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    QByteArray result(reinterpret_cast<const char *>(packed), static_cast<qsizetype>(size));
    jpeg_destroy_compress(&jpeg);
    std::free(packed);
    return result;
}

} // namespace

model::EncodedPicture encodePicture(const Raster &raster, const PixelBox &part)
{
    const int channels = raster.depth == ColourDepth::Colour ? 3 : 1;
    const std::vector<std::uint8_t> bytes = wholeBytes(raster, part);
    model::EncodedPicture picture;
    picture.widthPixels = part.width;
    picture.heightPixels = part.height;
    if (isPhotograph(bytes, part.width, part.height, channels)) {
        picture.mimeType = "image/jpeg";
        picture.bytes = asJpeg(bytes, part.width, part.height, channels);
    } else {
        picture.mimeType = "image/png";
        picture.bytes = asPng(bytes, part.width, part.height, channels);
    }
    return picture;
}

} // namespace quorra
