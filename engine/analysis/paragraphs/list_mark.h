// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra::model {

/// Whether the text is a bullet such as "•".
bool isBullet(const QString &text);

/// Whether the text is a counting mark such as "3.", "(a)", "iv)".
bool isOrdinalMark(const QString &text);

inline bool isListMark(const QString &text)
{
    return isBullet(text) || isOrdinalMark(text);
}

} // namespace quorra::model
