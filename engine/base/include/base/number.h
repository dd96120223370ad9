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

/// How a negative number is marked.
enum class NegativeForm {
    Minus,        ///< "-5"
    Parentheses,  ///< "(5)"
    Triangle,     ///< "△5", as in Japanese accounts
    TrailingMinus ///< "5-"
};

/// How a document writes its numbers.
struct NumberHabits
{
    NumberStyle style = NumberStyle::Point;
    bool spacesGroup = true; ///< "12 345" is one number

    bool operator==(const NumberHabits &) const = default;
};

/// A number as a table shows it.
struct Number
{
    double value = 0; ///< 0.05 for "5%"
    int decimals = 0;
    bool grouped = false; ///< with separators between thousands
    bool percent = false;
    bool scientific = false; ///< "1.5E+03"; the decimals are those of "1.5"
    bool amount = false;     ///< with a currency
    NegativeForm negative = NegativeForm::Minus;
    QString prefix; ///< currency, plus sign or mark of a note in front, with the space after it
    QString suffix; ///< currency, per mille sign or mark of a note behind, with the space before it

    bool operator==(const Number &) const = default;
};

// Two questions are asked about the text of a cell. The detection of tables asks whether it belongs to a column of
// numbers: looksNumeric() accepts dates, ranges, dashes for missing values and numbers with the letter of a note.
// Spreadsheets ask what they can calculate with: readNumber() accepts nothing that may mean something else. Whatever
// readNumber() accepts, looksNumeric() accepts, too.

/// Whether the text is typical of a column of numbers: digits with signs, separators, a currency mark or
/// percent and up to two letters, or a dash, dots or the like in place of a missing number.
bool looksNumeric(const QString &text);

/// Returns how most of the texts write numbers; the fallback where they leave it open.
NumberHabits numberHabitsOf(const QStringList &texts, const NumberHabits &fallback = {});

/// Reads a cell's text as a number. Nothing for what is a text to its reader: leading zeros ("00123"), dates, ranges,
/// list numbers, more digits than a number keeps. A per mille is not divided, because no number format multiplies it
/// again: it is its suffix.
std::optional<Number> readNumber(const QString &text, const NumberHabits &habits);

} // namespace quorra
