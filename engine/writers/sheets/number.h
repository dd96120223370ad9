// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorra::office {

/// How a document writes its numbers.
enum class NumberStyle {
    Point, ///< 1,234.56
    Comma  ///< 1.234,56
};

/// A number as a table shows it.
struct Number
{
    double value = 0; ///< 0.05 for "5%"
    int decimals = 0;
    bool grouped = false; ///< thousands apart
    bool percent = false;
    bool parentheses = false; ///< negative, shown as "(5)"
    QString prefix;           ///< currency sign or plus sign in front, blanks included
    QString suffix;           ///< currency sign behind

    bool operator==(const Number &) const = default;
};

/// Which style the texts speak for; Point when they leave it open.
NumberStyle numberStyleOf(const QStringList &texts);

/// Reads a cell's text as a number. Nothing for what is a text to its reader: leading zeros ("00123"), dates, ranges,
/// list numbers, more digits than a number keeps.
std::optional<Number> readNumber(const QString &text, NumberStyle style);

} // namespace quorra::office
