// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace quorra::model {

enum class NumberFormat { Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };

/// The mark of a numbered list item as a number: "(iv)" is 4 in lower-case Roman numerals, between "(" and ")".
struct ListNumber
{
    QString before;
    int value = 1;
    NumberFormat format = NumberFormat::Decimal;
    QString after;
};

/// Returns the number that the mark of a list item shows; nothing if it is none ("•"), has several parts ("1.2"), or is
/// too large. A single letter that is also a Roman numeral is read as what continues `previous`, the number of the item
/// before it in the same list; without that, "i." is a Roman numeral and "v." a letter.
std::optional<ListNumber> listNumber(const QString &mark, const std::optional<ListNumber> &previous = {});

/// Returns everything that the mark of a list item can mean as a number, the usual meaning first. Of a number of
/// several parts, the last one counts: "1.2" is 2 after "1.". Empty if the mark is no number.
std::vector<ListNumber> possibleNumbers(const QString &mark);

/// Whether both numbers have the same format and the same text around them.
bool looksLike(const ListNumber &one, const ListNumber &other);

/// Whether an item with the number `next` can follow one with the number `previous` and get its number by counting.
bool continuesNumbers(const ListNumber &previous, const ListNumber &next);

} // namespace quorra::model
