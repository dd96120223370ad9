// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_date.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr int monthsPerYear = 12;

const QRegularExpression &yearLast()
{
    static const QRegularExpression pattern(QStringLiteral(R"(^(\d{1,2})([/.-])(\d{1,2})\2(\d{4})$)"));
    return pattern;
}

const QRegularExpression &yearFirst()
{
    static const QRegularExpression pattern(QStringLiteral(R"(^(\d{4})([/.-])(\d{1,2})\2(\d{1,2})$)"));
    return pattern;
}

bool isPadded(const QString &a, const QString &b)
{
    return a.startsWith(u'0') || b.startsWith(u'0');
}

} // namespace

DateOrder dateOrderOf(const QStringList &texts)
{
    bool dayFirst = false;
    bool monthFirst = false;
    for (const QString &text : texts) {
        const QRegularExpressionMatch match = yearLast().match(text.trimmed());
        if (match.hasMatch() && match.captured(2) != "."_L1) {
            dayFirst = dayFirst || match.captured(1).toInt() > monthsPerYear;
            monthFirst = monthFirst || match.captured(3).toInt() > monthsPerYear;
        }
    }
    return dayFirst == monthFirst ? DateOrder::Unknown : dayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

std::optional<SheetDate> readDate(const QString &text, DateOrder order)
{
    SheetDate date;
    QRegularExpressionMatch match = yearFirst().match(text.trimmed());
    if (match.hasMatch()) {
        date.parts = u"ymd"_s;
        date.day = QDate(match.captured(1).toInt(), match.captured(3).toInt(), match.captured(4).toInt());
        date.padded = isPadded(match.captured(3), match.captured(4));
    } else {
        match = yearLast().match(text.trimmed());
        const bool points = match.captured(2) == "."_L1; // always written with the day first
        if (!match.hasMatch() || (order == DateOrder::Unknown && !points)) {
            return std::nullopt;
        }
        const bool dayFirst = points || order == DateOrder::DayFirst;
        const int first = match.captured(1).toInt();
        const int second = match.captured(3).toInt();
        date.parts = dayFirst ? u"dmy"_s : u"mdy"_s;
        date.day = QDate(match.captured(4).toInt(), dayFirst ? second : first, dayFirst ? first : second);
        date.padded = isPadded(match.captured(1), match.captured(3));
    }
    constexpr int firstYear = 1900; // spreadsheets count days from its beginning
    date.separator = match.captured(2);
    return date.day.isValid() && date.day.year() > firstYear ? std::optional(date) : std::nullopt;
}

QString dateFormat(StyleTable &styles, const SheetDate &date)
{
    Element format{"number:date-style"_L1, {{"number:automatic-order"_L1, u"false"_s}}};
    for (const QChar part : date.parts) {
        if (!format.children.empty()) {
            format.children.push_back({"number:text"_L1, {}, {}, date.separator});
        }
        const QLatin1String name = part == u'y' ? "number:year"_L1 : part == u'm' ? "number:month"_L1 : "number:day"_L1;
        const bool full = part == u'y' || date.padded;
        format.children.push_back({name, {{"number:style"_L1, full ? u"long"_s : u"short"_s}}});
    }
    return styles.name(format);
}

} // namespace quorra::office
