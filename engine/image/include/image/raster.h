// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quorra {

/// Rows of pixels from top to bottom. Colour has three bytes per pixel (red, green, blue), gray one byte, mono one bit:
/// the leftmost pixel is in the most significant bit, and 1 is white.
struct Raster
{
    int width = 0;
    int rows = 0;
    ColourDepth depth = ColourDepth::Colour;
    std::size_t stride = 0; ///< bytes from one row to the next
    const std::uint8_t *data = nullptr;
    std::shared_ptr<const void> owner; ///< keeps the data alive

    const std::uint8_t *row(int index) const { return data + static_cast<std::size_t>(index) * stride; }
};

/// Bytes of one row without padding.
inline std::size_t rowBytes(ColourDepth depth, int width)
{
    const auto pixels = static_cast<std::size_t>(width);
    switch (depth) {
    case ColourDepth::Colour:
        return pixels * 3;
    case ColourDepth::Gray:
        return pixels;
    case ColourDepth::Mono:
        break;
    }
    return (pixels + 7) / 8;
}

} // namespace quorra
