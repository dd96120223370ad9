// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/colour.h"

namespace quorra {

QString colourName(Colour colour)
{
    return QStringLiteral("#%1").arg(colour & 0xffffffU, 6, 16, QLatin1Char('0'));
}

} // namespace quorra
