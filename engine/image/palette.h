// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorra {

using Rgb = std::array<std::uint8_t, 3>;

/// A picture with a palette of at most 256 colours.
struct IndexedPicture
{
    std::vector<Rgb> palette;
    std::vector<std::uint8_t> pixels; ///< top row first, no padding
};

/// Converts a picture with three bytes per pixel to a palette: exactly if it has at most 256 colours, otherwise to the
/// 256 that fit best, with dithering. Throws std::bad_alloc.
IndexedPicture withPalette(const std::vector<std::uint8_t> &rgb, int width, int height);

} // namespace quorra
