// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra {

/// The values of -compress. Where TIFF has a number for a compression, it is the same.
enum class Compression {
    None = 1,
    Group3OneD = 3,
    Group4 = 4,
    Lzw = 5,
    PackBits = 32773,
    ClassFLow = 88882,
    ClassFFine = 88883,
    Group3TwoD = 88884,
};

/// Returns true for fax compressions, which support only black and white.
bool isFaxCompression(Compression compression);

} // namespace quorra
