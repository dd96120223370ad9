// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorra {

using Rgb = std::array<std::uint8_t, 3>;

/// A picture as numbers of palette entries, at most 256 of them.
struct IndexedPicture
{
    std::vector<Rgb> palette;
    std::vector<std::uint8_t> pixels; ///< top row first, no padding
};

/// Brings a picture of three bytes a pixel to a palette: exactly where it has at most 256 colours, else to the 256 that
/// suit it best, dithered. Throws std::bad_alloc.
IndexedPicture withPalette(const std::vector<std::uint8_t> &rgb, int width, int height);

} // namespace quorra
