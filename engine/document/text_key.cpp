// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/text_key.h"

namespace quorra::model {

QString textKey(const QString &text)
{
    QString key;
    for (const QChar c : text) {
        if (c.isLetterOrNumber()) {
            key += c.toCaseFolded();
        }
    }
    return key;
}

} // namespace quorra::model
