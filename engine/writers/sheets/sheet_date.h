// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>

#include <optional>
#include <vector>

namespace quorra::office {

/// The order of day, month and year in dates that are written in numbers.
enum class DateOrder { Unknown, DayFirst, MonthFirst, YearFirst };

/// How a document writes its dates. Dates whose order is unknown remain text.
struct DateHabits
{
    DateOrder order = DateOrder::Unknown;      ///< with years of four digits
    DateOrder shortOrder = DateOrder::Unknown; ///< with years of two digits
    bool monthsWithYears = false;              ///< "Mar-98" is a month of a year, not a day
    QString language;                          ///< a language tag, whose names of months are tried first; may be empty

    bool operator==(const DateHabits &) const = default;
};

/// A part of a date or time as it is written.
struct DatePart
{
    enum class Kind { Text, Year, Month, MonthName, Day, DayName, Hours, Minutes, Seconds, HalfDay };

    Kind kind = Kind::Text;
    bool full = false; ///< "2012" rather than "12", "08" rather than "8", "March" rather than "Mar"
    QString text = {}; ///< of Kind::Text

    bool operator==(const DatePart &) const = default;
};

/// A date, a time, or both as a table shows them.
struct SheetDate
{
    QDate day;  ///< invalid for a time alone; the first day of a month that is written without a day
    QTime time; ///< invalid for a date alone
    std::vector<DatePart> parts;
    QString language; ///< of the names of months and days; empty without names

    bool operator==(const SheetDate &) const = default;
};

/// Returns the habits that the texts show: "13/5/2012" has the day first. An order is unknown if no date shows it, or
/// several do; then it is that of the language, unless the language is written in countries with different orders.
DateHabits dateHabitsOf(const QStringList &texts, const QString &language);

/// Parses the text of a cell as a date, a time ("9:05", "2:30:15 PM") or both. Nothing for other text, for days that do
/// not exist and for years before 1901, which spreadsheets do not count.
std::optional<SheetDate> readDate(const QString &text, const DateHabits &habits);

/// Returns the name of the data style that formats dates in this way.
QString dateFormat(StyleTable &styles, const SheetDate &date);

} // namespace quorra::office
