// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra::model {

namespace listMarks {

struct Thresholds
{
    qsizetype minOrdinalLength = 2; ///< characters; a letter or number without a period or parenthesis is a word
    qsizetype maxOrdinalLength = 7; ///< characters; "(xviii)" is the longest mark in use
};

inline constexpr Thresholds thresholds;

} // namespace listMarks

/// Whether the text is a bullet such as "•".
bool isBullet(const QString &text);

/// Whether the text is a dash or an asterisk: a bullet only where its place says so, else punctuation.
bool isDashBullet(const QString &text);

/// Whether the text is an ordinal such as "3.", "(a)", "iv)".
bool isOrdinalMark(const QString &text);

/// Whether the text is a bullet or an ordinal.
inline bool isListMark(const QString &text)
{
    return isBullet(text) || isOrdinalMark(text);
}

} // namespace quorra::model
