// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorra {

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
    bool grouped = false; ///< with separators between thousands
    bool percent = false;
    bool parentheses = false; ///< negative, shown as "(5)"
    QString prefix;           ///< currency mark or plus sign in front, with the space after it
    QString suffix;           ///< currency mark behind, with the space before it

    bool operator==(const Number &) const = default;
};

// Two questions are asked about the text of a cell. The detection of tables asks whether it belongs to a column of
// numbers: looksNumeric() accepts dates, ranges, dashes for missing values and numbers with the letter of a note.
// Spreadsheets ask what they can calculate with: readNumber() accepts nothing that may mean something else. Whatever
// readNumber() accepts, looksNumeric() accepts, too.

/// Whether the text is typical of a column of numbers: digits with signs, separators, a currency mark or
/// percent and up to two letters, or a dash, dots or the like in place of a missing number.
bool looksNumeric(const QString &text);

/// The style that most of the texts are written in; Point when they leave it open.
NumberStyle numberStyleOf(const QStringList &texts);

/// Reads a cell's text as a number. Nothing for what is a text to its reader: leading zeros ("00123"), dates, ranges,
/// list numbers, more digits than a number keeps.
std::optional<Number> readNumber(const QString &text, NumberStyle style);

} // namespace quorra
