// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/characters.h"

namespace quorra {

int letterCount(const QString &text)
{
    int count = 0;
    for (const QChar c : text) {
        const bool ideograph = c.unicode() >= 0x2e80 && c.unicode() < 0xfb00;
        count += ideograph ? 2 : c.isLetterOrNumber() ? 1 : 0;
    }
    return count;
}

} // namespace quorra
