// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorra::office {

/// The order of day and month in a document. Ambiguous dates remain text.
enum class DateOrder { Unknown, DayFirst, MonthFirst };

/// A date as a table shows it.
struct SheetDate
{
    QDate day;
    QString parts;       ///< the order on the page: "ymd", "dmy" or "mdy"
    QString separator;   ///< between the parts
    bool padded = false; ///< "08" rather than "8"

    bool operator==(const SheetDate &) const = default;
};

/// Returns the order that the texts show: "13/5/2012" has the day first. Unknown if there is no such date, or both
/// orders occur.
DateOrder dateOrderOf(const QStringList &texts);

/// Parses the text of a cell as a date with a year of four digits. Nothing for other text and for invalid dates.
std::optional<SheetDate> readDate(const QString &text, DateOrder order);

/// Returns the name of the data style that formats dates in this way.
QString dateFormat(StyleTable &styles, const SheetDate &date);

} // namespace quorra::office
