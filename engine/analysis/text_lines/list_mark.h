// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace quorra::model {

namespace listMarks {

struct Thresholds
{
    qsizetype minOrdinalLength = 2; ///< characters; a letter or number without a period or parenthesis is a word
    qsizetype maxOrdinalLength = 7; ///< characters; "(xviii)" is the longest mark in use
    double minSpacedGap = 0.5;      ///< em; after a mark that would be a word or a number without a wide gap
    double minGapRatio = 1.5;       ///< of that gap to the others of its line, which may be justified
};

inline constexpr Thresholds thresholds;

} // namespace listMarks

/// Whether the text is a bullet such as "•".
bool isBullet(const QString &text);

/// Whether the text is a dash or an asterisk: a bullet only where its place says so, else punctuation.
bool isDashBullet(const QString &text);

/// Whether the text is an ordinal such as "3.", "(a)", "iv)".
bool isOrdinalMark(const QString &text);

/// Whether the text is the letter "o" as a bullet, which it is only in front of a wide gap.
inline bool isLetterBullet(const QString &text)
{
    return text == QLatin1String("o");
}

/// Whether the text is a mark only in front of a wide gap: "o", or a number of several parts ("1.2", "A.3").
bool isSpacedMark(const QString &text);

/// Whether a mark with these gaps after the words of its line, its own first, has a wide one. The size is that of its
/// font; all in points.
bool isSpaced(const std::vector<double> &gaps, double size);

/// Whether the text is a bullet or an ordinal.
inline bool isListMark(const QString &text)
{
    return isBullet(text) || isOrdinalMark(text);
}

} // namespace quorra::model
