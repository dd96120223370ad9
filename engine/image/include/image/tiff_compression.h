// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra {

/// The numbers that -compress takes. The first six are TIFF's own where TIFF has one.
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

/// True for the fax codings, which know black and white only.
bool isFaxCompression(Compression compression);

} // namespace quorra
