// SPDX-License-Identifier: GPL-3.0-or-later
#include "month_names.h"

#include <QHash>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

// Languages of Europe and the Americas. English is the first one, so that names which several languages have are
// English.
constexpr std::array languages = {
    QLocale::English,    QLocale::German,    QLocale::French,    QLocale::Spanish,    QLocale::Italian,
    QLocale::Portuguese, QLocale::Dutch,     QLocale::Swedish,   QLocale::Danish,     QLocale::NorwegianBokmal,
    QLocale::Finnish,    QLocale::Polish,    QLocale::Czech,     QLocale::Slovak,     QLocale::Hungarian,
    QLocale::Romanian,   QLocale::Croatian,  QLocale::Slovenian, QLocale::Turkish,    QLocale::Greek,
    QLocale::Russian,    QLocale::Ukrainian, QLocale::Bulgarian, QLocale::Indonesian, QLocale::Catalan};

using Names = QHash<QString, std::vector<CalendarName>>;

QString key(QString name)
{
    while (name.endsWith(u'.')) {
        name.chop(1);
    }
    return name.toCaseFolded();
}

void add(Names &names, const QString &name, const CalendarName &meaning)
{
    constexpr qsizetype minLength = 3; // shorter ones are too many other things
    const QString entry = key(name);
    const bool isName = entry.size() >= minLength &&
                        std::none_of(entry.begin(), entry.end(), [](QChar c) { return c.isDigit() || c.isSpace(); });
    if (isName) {
        names[entry].push_back(meaning);
    }
}

/// Adds the names of one kind: monthName or dayName of a locale, in both grammatical forms.
template <typename NameOf>
void addAll(Names &names, const QLocale &locale, int count, const NameOf &nameOf)
{
    const QString language = QLocale::languageToCode(locale.language());
    for (int number = 1; number <= count; ++number) {
        for (const bool full : {true, false}) {
            nameOf(number, full ? QLocale::LongFormat : QLocale::ShortFormat, [&](const QString &name) {
                add(names, name, {number, full, language});
            });
        }
    }
}

Names monthNames()
{
    constexpr int months = 12;
    Names names;
    for (const QLocale::Language language : languages) {
        const QLocale locale(language);
        addAll(names, locale, months, [&locale](int month, QLocale::FormatType type, const auto &use) {
            use(locale.monthName(month, type));
            use(locale.standaloneMonthName(month, type));
        });
    }
    add(names, u"sept"_s, {9, false, u"en"_s});
    return names;
}

Names weekdayNames()
{
    constexpr int days = 7;
    Names names;
    for (const QLocale::Language language : languages) {
        const QLocale locale(language);
        addAll(names, locale, days, [&locale](int day, QLocale::FormatType type, const auto &use) {
            use(locale.dayName(day, type));
        });
    }
    return names;
}

std::optional<CalendarName> meaningOf(const Names &names, const QString &name, const QString &language)
{
    const auto found = names.find(key(name));
    if (found == names.end()) {
        return std::nullopt;
    }
    const std::vector<CalendarName> &meanings = *found;
    const QString code = language.section(u'-', 0, 0).toLower();
    const auto own = std::find_if(
        meanings.begin(), meanings.end(), [&code](const CalendarName &meaning) { return meaning.language == code; });
    if (own != meanings.end()) {
        return *own;
    }
    const bool agree = std::all_of(meanings.begin(), meanings.end(), [&meanings](const CalendarName &meaning) {
        return meaning.number == meanings.front().number;
    });
    return agree ? std::optional(meanings.front()) : std::nullopt;
}

} // namespace

std::optional<CalendarName> monthNamed(const QString &name, const QString &language)
{
    static const Names names = monthNames();
    return meaningOf(names, name, language);
}

std::optional<CalendarName> weekdayNamed(const QString &name, const QString &language)
{
    static const Names names = weekdayNames();
    return meaningOf(names, name, language);
}

} // namespace quorra::office
