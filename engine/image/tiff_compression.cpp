// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/tiff_compression.h"

namespace quorra {

bool isFaxCompression(Compression compression)
{
    switch (compression) {
    case Compression::Group3OneD:
    case Compression::Group3TwoD:
    case Compression::Group4:
    case Compression::ClassFLow:
    case Compression::ClassFFine:
        return true;
    case Compression::None:
    case Compression::Lzw:
    case Compression::PackBits:
        break;
    }
    return false;
}

} // namespace quorra
