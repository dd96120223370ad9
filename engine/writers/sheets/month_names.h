// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace quorra::office {

/// A month or a day of the week by its name.
struct CalendarName
{
    int number = 0; ///< 1 for January or Monday
    bool full = false;
    QString language; ///< a language code such as "fr"

    bool operator==(const CalendarName &) const = default;
};

/// Returns what the name of a month or of a day of the week means, with or without a full stop, in any case; nothing
/// for other words. The language with that tag is tried first. A name that means different months in the others, such
/// as "listopad", is not known.
std::optional<CalendarName> monthNamed(const QString &name, const QString &language);
std::optional<CalendarName> weekdayNamed(const QString &name, const QString &language);

} // namespace quorra::office
