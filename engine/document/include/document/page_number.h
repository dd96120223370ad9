// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/list_number.h"

#include <QString>

#include <optional>

namespace quorra::model {

/// A page number as it is printed.
struct PageNumber
{
    int value = 1;
    NumberFormat format = NumberFormat::Decimal; ///< Decimal, LowerRoman or UpperRoman

    bool operator==(const PageNumber &) const = default;
};

/// Reads a text that is nothing but a page number, in digits or Roman numerals. Empty for other texts, and for numbers
/// with more digits than page numbers have.
std::optional<PageNumber> readPageNumber(const QString &text);

} // namespace quorra::model
