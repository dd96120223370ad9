// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/characters.h"

#include <algorithm>

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

bool looksNumeric(const QString &text)
{
    int digits = 0;
    int letters = 0;
    for (const QChar c : text) {
        digits += c.isDigit() ? 1 : 0;
        letters += c.isLetter() ? 1 : 0;
    }
    if (digits > 0) {
        return letters == 0 || (letters <= 2 && digits > letters);
    }
    static const QString stand = QStringLiteral("-–—†‡*….#");
    return letters == 0 &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace() || stand.contains(c); });
}

} // namespace quorra
