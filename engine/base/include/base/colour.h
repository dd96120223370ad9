// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>

namespace quorra {

/// An opaque colour, 0xRRGGBB.
using Colour = std::uint32_t;
constexpr Colour black = 0x000000;
constexpr Colour white = 0xffffff;

/// Returns "#rrggbb", as style sheets and office documents write it.
QString colourName(Colour colour);

/// The colours of an output.
enum class ColourDepth { Colour, Gray, Mono };

} // namespace quorra
