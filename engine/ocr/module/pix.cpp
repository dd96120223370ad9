// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/pix.h"

#include <new>

namespace quorra::ocr {

namespace {

/// Brightness of a pixel, with the weights of Rec. 601 in 1/256.
std::uint32_t brightness(const std::uint8_t *pixel)
{
    return (77U * pixel[0] + 150U * pixel[1] + 29U * pixel[2]) >> 8U;
}

std::uint32_t grayAt(const Raster &raster, const std::uint8_t *row, int x)
{
    switch (raster.depth) {
    case ColourDepth::Colour:
        return brightness(row + static_cast<std::size_t>(x) * 3);
    case ColourDepth::Gray:
        return row[x];
    case ColourDepth::Mono:
        break;
    }
    return ((row[x / 8] >> (7 - x % 8)) & 1) != 0 ? 255 : 0;
}

} // namespace

PixPtr checked(PIX *pix)
{
    if (pix == nullptr) {
        throw std::bad_alloc();
    }
    return PixPtr(pix);
}

PixPtr grayPix(const Raster &raster)
{
    PixPtr pix = checked(pixCreateNoInit(raster.width, raster.rows, 8));
    for (int y = 0; y < raster.rows; ++y) {
        l_uint32 *line = pixGetData(pix.get()) + static_cast<std::size_t>(y) * pixGetWpl(pix.get());
        const std::uint8_t *row = raster.row(y);
        for (int x = 0; x < raster.width; ++x) {
            SET_DATA_BYTE(line, x, grayAt(raster, row, x));
        }
    }
    return pix;
}

} // namespace quorra::ocr
