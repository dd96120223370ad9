// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/page_number.h"

#include <algorithm>

namespace quorra::model {

namespace {

struct Thresholds
{
    qsizetype maxDigits = 5; ///< of a page number; longer numbers are others
};
constexpr Thresholds thresholds;

} // namespace

std::optional<PageNumber> readPageNumber(const QString &text)
{
    if (!text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; })) {
        return text.size() <= thresholds.maxDigits ? std::optional(PageNumber{text.toInt(), NumberFormat::Decimal})
                                                   : std::nullopt;
    }
    for (const ListNumber &number : possibleNumbers(text)) {
        const bool roman = number.format == NumberFormat::LowerRoman || number.format == NumberFormat::UpperRoman;
        if (roman && number.before.isEmpty() && number.after.isEmpty()) {
            return PageNumber{number.value, number.format};
        }
    }
    return std::nullopt;
}

} // namespace quorra::model
