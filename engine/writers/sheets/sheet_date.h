// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorra::office {

/// How a document writes its days: what can be read in two ways stays text.
enum class DateOrder { Unknown, DayFirst, MonthFirst };

/// A day as a table shows it.
struct SheetDate
{
    QDate day;
    QString parts;       ///< the order on the page: "ymd", "dmy" or "mdy"
    QString separator;   ///< between the parts
    bool padded = false; ///< "08" rather than "8"

    bool operator==(const SheetDate &) const = default;
};

/// The order for which the texts speak: one with "13/5/2012" writes the day first. Unknown where none or both speak.
DateOrder dateOrderOf(const QStringList &texts);

/// Reads a cell's text as a day with a year of four digits. Nothing for any other text and for days that do not exist.
std::optional<SheetDate> readDate(const QString &text, DateOrder order);

/// The name of the data style that shows such days as the page does.
QString dateFormat(StyleTable &styles, const SheetDate &date);

} // namespace quorra::office
