// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

namespace quorra {

/// Returns how bright the colour appears, from 0 to 255: its luma according to ITU-R BT.601.
constexpr double lumaOf(Colour colour)
{
    return 0.299 * (colour >> 16 & 0xff) + 0.587 * (colour >> 8 & 0xff) + 0.114 * (colour & 0xff);
}

} // namespace quorra
