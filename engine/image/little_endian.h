// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace quorra {

/// Appends the `bytes` least significant bytes of the number, in little-endian order.
inline void appendLittleEndian(std::string &text, std::uint32_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(number >> (8 * i) & 0xFF);
    }
}

} // namespace quorra
