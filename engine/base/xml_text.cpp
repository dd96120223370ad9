// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/xml_text.h"

#include <algorithm>

namespace quorra {

namespace {

bool isPlain(QChar c)
{
    return c.unicode() >= 0x20 && !c.isSurrogate() && c.unicode() < 0xfffe;
}

} // namespace

QString xmlText(const QString &text)
{
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        return text;
    }
    QString allowed;
    allowed.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool pair = c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (pair) {
            allowed += c;
            allowed += text.at(++i);
        } else if (isPlain(c) || c == QLatin1Char('\n') || c == QLatin1Char('\t')) {
            allowed += c;
        }
    }
    return allowed;
}

} // namespace quorra
