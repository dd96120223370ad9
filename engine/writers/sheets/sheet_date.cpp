// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_date.h"

#include "month_names.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

using Kind = DatePart::Kind;

constexpr int firstYear = 1901;     // spreadsheets count days from the year before, and disagree on its days
constexpr int pivotYear = 30;       // of two digits: from here on of the 20th century, as spreadsheets have it
constexpr qsizetype maxLength = 48; // characters; longer text is no date

/// Three numbers with the same separator between them.
struct Numbers
{
    std::array<QString, 3> fields;
    QString separator;

    bool isShort() const { return fields[0].size() <= 2 && fields[2].size() <= 2; }
};

std::optional<Numbers> readNumbers(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^(\d{1,4})(\. ?|[/-])(\d{1,2})\2(\d{4}|\d{2}|\d)\.?$)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    Numbers numbers{{match.captured(1), match.captured(3), match.captured(4)}, match.captured(2)};
    const qsizetype first = numbers.fields[0].size();
    const qsizetype last = numbers.fields[2].size();
    const bool yearFirst = first == 4 && last <= 2;
    const bool yearLast = first <= 2 && last == 4;
    const bool shortYear = first <= 2 && last == 2;
    return yearFirst || yearLast || shortYear ? std::optional(numbers) : std::nullopt;
}

int fullYear(const QString &year)
{
    constexpr int century = 100;
    const int value = year.toInt();
    return year.size() > 2 ? value : value + (value < pivotYear ? 20 : 19) * century;
}

/// Returns the indices of year, month and day in dates of this order.
std::array<std::size_t, 3> placesIn(DateOrder order)
{
    switch (order) {
    case DateOrder::DayFirst:
        return {2, 1, 0};
    case DateOrder::MonthFirst:
        return {2, 0, 1};
    default:
        return {0, 1, 2};
    }
}

QDate dayOf(const Numbers &numbers, DateOrder order)
{
    const auto [year, month, day] = placesIn(order);
    return {fullYear(numbers.fields[year]), numbers.fields[month].toInt(), numbers.fields[day].toInt()};
}

/// Returns the orders in which all of the dates exist that exist in any.
std::vector<DateOrder> possibleOrders(const std::vector<Numbers> &dates, std::vector<DateOrder> orders)
{
    for (const Numbers &date : dates) {
        std::vector<DateOrder> left;
        for (const DateOrder order : orders) {
            if (dayOf(date, order).isValid()) {
                left.push_back(order);
            }
        }
        const bool exists = dayOf(date, DateOrder::DayFirst).isValid() ||
                            dayOf(date, DateOrder::MonthFirst).isValid() ||
                            (date.isShort() && dayOf(date, DateOrder::YearFirst).isValid());
        if (exists) {
            orders = std::move(left);
        }
    }
    return orders;
}

/// Returns the order in which the language writes dates. English is written in both orders, except for the countries
/// that the tag names.
DateOrder orderOf(const QString &language)
{
    if (language.isEmpty() || language.compare(u"en"_s, Qt::CaseInsensitive) == 0 ||
        language.compare(u"en-US"_s, Qt::CaseInsensitive) == 0) {
        return DateOrder::Unknown; // many programs write this tag into any file
    }
    const QString format = QLocale(QString(language).replace(u'-', u'_')).dateFormat(QLocale::ShortFormat).toLower();
    const qsizetype day = format.indexOf(u'd');
    const qsizetype month = format.indexOf(u'm');
    const qsizetype year = format.indexOf(u'y');
    return year < day ? DateOrder::YearFirst : day < month ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

DatePart literal(const QString &text)
{
    return {Kind::Text, false, text};
}

DatePart yearPart(const QString &digits)
{
    return {Kind::Year, digits.size() > 2};
}

std::optional<SheetDate> dateInNumbers(const QString &text, const DateHabits &habits)
{
    const std::optional<Numbers> numbers = readNumbers(text);
    if (!numbers) {
        return std::nullopt;
    }
    const bool points = numbers->separator.startsWith(u'.');
    DateOrder order = numbers->isShort() ? habits.shortOrder : habits.order;
    if (numbers->fields[0].size() > 2) {
        order = DateOrder::YearFirst;
    } else if (!numbers->isShort() && points) {
        order = DateOrder::DayFirst; // the only order that is written with points
    } else if (points && order == DateOrder::MonthFirst) {
        order = DateOrder::Unknown;
    }
    if (order == DateOrder::Unknown) {
        return std::nullopt;
    }
    const auto places = placesIn(order);
    const bool padded = numbers->fields[places[1]].startsWith(u'0') || numbers->fields[places[2]].startsWith(u'0');
    SheetDate date;
    date.day = dayOf(*numbers, order);
    for (std::size_t i = 0; i < numbers->fields.size(); ++i) {
        if (i > 0) {
            date.parts.push_back(literal(numbers->separator));
        }
        date.parts.push_back(
            i == places[0]   ? yearPart(numbers->fields[i])
            : i == places[1] ? DatePart{Kind::Month, padded}
                             : DatePart{Kind::Day, padded});
    }
    return date;
}

/// A date in the characters of East Asia: "2012年3月8日", "2012년 3월 8일".
std::optional<SheetDate> eastAsianDate(const QString &text)
{
    static const QRegularExpression pattern(
        uR"(^(\d{4})( ?(?:\x{5e74}|\x{b144}) ?)(\d{1,2})( ?(?:\x{6708}|\x{c6d4}) ?)(?:(\d{1,2})( ?(?:\x{65e5}|\x{c77c})))?$)"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    SheetDate date;
    const QString day = match.captured(5);
    date.day = QDate(match.captured(1).toInt(), match.captured(3).toInt(), day.isEmpty() ? 1 : day.toInt());
    date.parts = {
        yearPart(match.captured(1)),
        literal(match.captured(2)),
        {Kind::Month, match.captured(3).startsWith(u'0')},
        literal(match.captured(4))};
    if (!day.isEmpty()) {
        date.parts.insert(date.parts.end(), {{Kind::Day, day.startsWith(u'0')}, literal(match.captured(6))});
    }
    return date;
}

/// A part of the text: a number, a word, or what is between them.
struct Token
{
    enum class Kind { Number, Word, Between };

    Kind kind;
    QString text;
};

/// Divides the text. Words that only connect the parts of a date, and the ends of ordinal numbers, are between them.
std::vector<Token> tokensOf(const QString &text)
{
    static const QRegularExpression pattern(uR"(\d+|\p{L}+|[^\d\p{L}]+)"_s);
    static const QStringList connecting = {u"de"_s, u"del"_s, u"of"_s, u"di"_s, u"st"_s,
                                           u"nd"_s, u"rd"_s,  u"th"_s, u"er"_s};
    std::vector<Token> tokens;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const QString part = matches.next().captured();
        const bool isWord = part.front().isLetter() && !connecting.contains(part);
        const Token::Kind kind = part.front().isDigit() ? Token::Kind::Number
                                 : isWord               ? Token::Kind::Word
                                                        : Token::Kind::Between;
        if (kind == Token::Kind::Between && !tokens.empty() && tokens.back().kind == kind) {
            tokens.back().text += part;
        } else {
            tokens.push_back({kind, part});
        }
    }
    return tokens;
}

/// Returns the order of the tokens, with the name of the day at the front: "d" for the name of a day, "m" for that of a
/// month, "1" for a number of up to two digits, "4" for one of four. Other tokens are "?".
QString shapeOf(const std::vector<Token> &tokens, const DateHabits &habits)
{
    QString shape;
    for (const Token &token : tokens) {
        if (token.kind == Token::Kind::Number) {
            shape += token.text.size() <= 2 ? u'1' : token.text.size() == 4 ? u'4' : u'?';
        } else if (token.kind == Token::Kind::Word) {
            shape += monthNamed(token.text, habits.language)     ? u'm'
                     : weekdayNamed(token.text, habits.language) ? u'd'
                                                                 : u'?';
        }
    }
    return shape;
}

/// The kinds of the numbers and words of a date with the name of a month; empty for other shapes.
std::vector<Kind> kindsOf(QString shape, const std::vector<Token> &tokens, const DateHabits &habits)
{
    const bool weekday = shape.startsWith(u'd');
    if (weekday) {
        shape.remove(0, 1);
    }
    const bool hyphen = tokens.size() == 3 && tokens[1].text == u"-";
    std::vector<Kind> kinds;
    if (shape == u"1m4" || shape == u"1m1") {
        kinds = std::vector<Kind>{Kind::DayName, Kind::Day, Kind::MonthName, Kind::Year};
    } else if (shape == u"m14" || (shape == u"m11" && weekday)) {
        kinds = std::vector<Kind>{Kind::DayName, Kind::MonthName, Kind::Day, Kind::Year};
    } else if (shape == u"4m1") {
        kinds = std::vector<Kind>{Kind::DayName, Kind::Year, Kind::MonthName, Kind::Day};
    } else if (!weekday && (shape == u"m4" || (shape == u"m1" && hyphen && habits.monthsWithYears))) {
        kinds = std::vector<Kind>{Kind::DayName, Kind::MonthName, Kind::Year};
    }
    if (!weekday && !kinds.empty()) {
        kinds.erase(kinds.begin());
    }
    return kinds;
}

std::optional<SheetDate> dateWithName(const QString &text, const DateHabits &habits)
{
    const std::vector<Token> tokens = tokensOf(text);
    const std::vector<Kind> kinds = kindsOf(shapeOf(tokens, habits), tokens, habits);
    if (kinds.empty()) {
        return std::nullopt;
    }
    SheetDate date;
    int year = 0;
    int month = 0;
    int day = 1;
    std::optional<CalendarName> weekday;
    auto kind = kinds.begin();
    for (const Token &token : tokens) {
        if (token.kind == Token::Kind::Between) {
            date.parts.push_back(literal(token.text));
            continue;
        }
        DatePart part{*kind++};
        if (part.kind == Kind::Year) {
            year = fullYear(token.text);
            part = yearPart(token.text);
        } else if (part.kind == Kind::Day) {
            day = token.text.toInt();
            part.full = token.text.startsWith(u'0');
        } else if (part.kind == Kind::MonthName) {
            const CalendarName name = monthNamed(token.text, habits.language).value_or(CalendarName{});
            month = name.number;
            part.full = name.full;
            date.language = name.language;
        } else {
            weekday = weekdayNamed(token.text, habits.language);
            part.full = weekday && weekday->full;
        }
        date.parts.push_back(part);
    }
    date.day = QDate(year, month, day);
    const bool otherWeekday = weekday && date.day.isValid() && weekday->number != date.day.dayOfWeek();
    return otherWeekday ? std::nullopt : std::optional(date);
}

/// Returns the time at the end of the text, which is removed from it with the space or comma before it.
std::optional<SheetDate> takeTime(QString &text)
{
    static const QRegularExpression pattern(
        uR"((?:^|(?<between>,? |T))(?<hours>\d{1,2}):(?<minutes>[0-5]\d)(?::(?<seconds>[0-5]\d))?(?<half>(?<space> ?)[AaPp]\.?[Mm]\.?)?$)"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    constexpr int noon = 12;
    const QString half = match.captured(u"half"_s).trimmed();
    int hours = match.captured(u"hours"_s).toInt();
    if (!half.isEmpty() && (hours < 1 || hours > noon)) {
        return std::nullopt;
    }
    if (!half.isEmpty()) {
        hours = hours % noon + (half.startsWith(u'p', Qt::CaseInsensitive) ? noon : 0);
    }
    SheetDate time;
    time.time = QTime(hours, match.captured(u"minutes"_s).toInt(), match.captured(u"seconds"_s).toInt());
    if (const QString between = match.captured(u"between"_s); !between.isEmpty()) {
        time.parts.push_back(literal(between));
    }
    time.parts.insert(
        time.parts.end(),
        {{Kind::Hours, match.captured(u"hours"_s).size() > 1}, literal(u":"_s), {Kind::Minutes, true}});
    if (!match.captured(u"seconds"_s).isEmpty()) {
        time.parts.insert(time.parts.end(), {literal(u":"_s), {Kind::Seconds, true}});
    }
    if (!half.isEmpty()) {
        time.parts.insert(time.parts.end(), {literal(match.captured(u"space"_s)), {Kind::HalfDay, true}});
    }
    text.truncate(match.capturedStart());
    return time.time.isValid() ? std::optional(time) : std::nullopt;
}

QLatin1String elementName(Kind kind)
{
    switch (kind) {
    case Kind::Year:
        return "number:year"_L1;
    case Kind::Month:
    case Kind::MonthName:
        return "number:month"_L1;
    case Kind::Day:
        return "number:day"_L1;
    case Kind::DayName:
        return "number:day-of-week"_L1;
    case Kind::Hours:
        return "number:hours"_L1;
    case Kind::Minutes:
        return "number:minutes"_L1;
    case Kind::Seconds:
        return "number:seconds"_L1;
    case Kind::HalfDay:
        return "number:am-pm"_L1;
    case Kind::Text:
        break;
    }
    return "number:text"_L1;
}

} // namespace

DateHabits dateHabitsOf(const QStringList &texts, const QString &language)
{
    static const QRegularExpression shortMonth(uR"(^(\p{L}{3,4})-(\d\d)$)"_s);
    constexpr int mostDays = 31;
    DateHabits habits;
    habits.language = language;
    std::vector<Numbers> longDates;
    std::vector<Numbers> shortDates;
    for (const QString &cell : texts) {
        QString text = cell.simplified();
        if (text.size() > maxLength) {
            continue;
        }
        takeTime(text);
        if (const std::optional<Numbers> numbers = readNumbers(text)) {
            const bool points = numbers->separator.startsWith(u'.');
            if (numbers->isShort()) {
                shortDates.push_back(*numbers);
            } else if (numbers->fields[0].size() <= 2 && !points) {
                longDates.push_back(*numbers);
            }
        }
        const QRegularExpressionMatch match = shortMonth.match(text);
        const int year = match.captured(2).toInt();
        habits.monthsWithYears = habits.monthsWithYears || (match.hasMatch() && (year == 0 || year > mostDays) &&
                                                            monthNamed(match.captured(1), language));
    }
    const DateOrder usual = orderOf(language);
    const auto choose = [usual](const std::vector<DateOrder> &possible, DateOrder preferred) {
        const bool fits = std::count(possible.begin(), possible.end(), preferred) > 0;
        const bool isUsual = std::count(possible.begin(), possible.end(), usual) > 0;
        return possible.size() == 1 ? possible.front() : fits ? preferred : isUsual ? usual : DateOrder::Unknown;
    };
    habits.order = choose(possibleOrders(longDates, {DateOrder::DayFirst, DateOrder::MonthFirst}), DateOrder::Unknown);
    habits.shortOrder = choose(
        possibleOrders(shortDates, {DateOrder::DayFirst, DateOrder::MonthFirst, DateOrder::YearFirst}),
        longDates.empty() ? DateOrder::Unknown : habits.order);
    return habits;
}

std::optional<SheetDate> readDate(const QString &text, const DateHabits &habits)
{
    QString rest = text.simplified();
    if (rest.size() > maxLength || text.contains(u'\n')) {
        return std::nullopt;
    }
    std::optional<SheetDate> time = takeTime(rest);
    if (rest.isEmpty()) {
        return time;
    }
    std::optional<SheetDate> date = dateInNumbers(rest, habits);
    if (!date) {
        date = eastAsianDate(rest);
    }
    if (!date) {
        date = dateWithName(rest, habits);
    }
    if (!date || !date->day.isValid() || date->day.year() < firstYear) {
        return std::nullopt;
    }
    if (time) {
        date->time = time->time;
        date->parts.insert(date->parts.end(), time->parts.begin(), time->parts.end());
    }
    return date;
}

QString dateFormat(StyleTable &styles, const SheetDate &date)
{
    Element format{date.day.isValid() ? "number:date-style"_L1 : "number:time-style"_L1};
    if (date.day.isValid()) {
        format.attributes.emplace_back("number:automatic-order"_L1, u"false"_s);
    }
    if (!date.language.isEmpty()) {
        const QLocale locale(date.language);
        format.attributes.emplace_back("number:language"_L1, date.language);
        format.attributes.emplace_back("number:country"_L1, QLocale::territoryToCode(locale.territory()));
    }
    for (const DatePart &part : date.parts) {
        Element element{elementName(part.kind)};
        element.text = part.text;
        if (part.kind != Kind::Text && part.kind != Kind::HalfDay) {
            element.attributes.emplace_back("number:style"_L1, part.full ? u"long"_s : u"short"_s);
        }
        if (part.kind == Kind::MonthName) {
            element.attributes.emplace_back("number:textual"_L1, u"true"_s);
        }
        if (part.kind != Kind::Text || !part.text.isEmpty()) {
            format.children.push_back(element);
        }
    }
    return styles.name(format);
}

} // namespace quorra::office
