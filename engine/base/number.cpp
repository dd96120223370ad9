// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra {

namespace {

constexpr qsizetype mostDigits = 15; // that a spreadsheet's numbers hold exactly

// Patterns of currency marks: a sign, with letters for the country ("US$"), or a code.
QString currencySign()
{
    return u"(?:[$€£¥])"_s;
}

QString currencyCode()
{
    return u"(?:EUR|USD|GBP|CHF)"_s;
}

QString country()
{
    return u"(?:[A-Z]{0,3})"_s;
}

const QRegularExpression &outerPattern()
{
    static const QRegularExpression pattern(
        uR"(^(?<open>\()?(?<sign>[-+\x{2212}\x{2013}] ?)?)"_s + u"(?<prefix>(?:"_s + country() + currencySign() + u'|' +
        currencyCode() + u") ?)?"_s +
        uR"((?<sign2>[-\x{2212}])?(?<digits>[0-9.,](?:[0-9.,'’ \x{a0}\x{2009}\x{202f}]*[0-9])?))"_s +
        u"(?<suffix> ?(?:%|"_s + currencySign() + u'|' + currencyCode() + u"))?"_s +
        uR"((?<close>\))?(?<percent2> ?%)?$)"_s);
    return pattern;
}

QString withoutCurrency(QString text)
{
    static const QRegularExpression mark(
        u"(?<![A-Za-z])(?:"_s + country() + u"(?="_s + currencySign() + u")|"_s + currencyCode() + u"(?![A-Za-z]))"_s);
    return text.remove(mark);
}

struct Count
{
    int digits = 0;
    int letters = 0;
};

Count countOf(const QString &text)
{
    Count count;
    for (const QChar c : text) {
        count.digits += c.isDigit() ? 1 : 0;
        count.letters += c.isLetter() ? 1 : 0;
    }
    return count;
}

bool isMostlyDigits(const Count &count)
{
    constexpr int mostLetters = 2; // a unit, or the letter of a note
    return count.letters == 0 || (count.letters <= mostLetters && count.digits > count.letters);
}

struct Digits
{
    QString whole;
    QString fraction;
    bool grouped = false;
};

std::optional<Digits> splitDigits(const QString &text, NumberStyle style)
{
    static const QRegularExpression point(QStringLiteral(
        R"(^(?<whole>[0-9]{1,3}(?:([,'’ \x{a0}\x{2009}\x{202f}])[0-9]{3}(?:\2[0-9]{3})*)|[0-9]*)(?:\.(?<fraction>[0-9]+))?$)"));
    static const QRegularExpression comma(QStringLiteral(
        R"(^(?<whole>[0-9]{1,3}(?:([.'’ \x{a0}\x{2009}\x{202f}])[0-9]{3}(?:\2[0-9]{3})*)|[0-9]*)(?:,(?<fraction>[0-9]+))?$)"));
    const QRegularExpressionMatch match = (style == NumberStyle::Point ? point : comma).match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    Digits digits{match.captured(u"whole"_s), match.captured(u"fraction"_s)};
    const auto isSeparator = [](QChar c) { return !c.isDigit(); };
    digits.grouped = std::any_of(digits.whole.cbegin(), digits.whole.cend(), isSeparator);
    digits.whole.removeIf(isSeparator);
    if (digits.whole.isEmpty() && digits.fraction.isEmpty()) {
        return std::nullopt;
    }
    return digits;
}

bool hasLeadingZero(const QString &whole)
{
    return whole.size() > 1 && whole[0] == u'0';
}

} // namespace

bool looksNumeric(const QString &text)
{
    const Count count = countOf(text);
    if (count.digits > 0) {
        return isMostlyDigits(count) || isMostlyDigits(countOf(withoutCurrency(text)));
    }
    static const QString standIns = u"-–—†‡*….#"_s; // for a missing number
    return count.letters == 0 &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace() || standIns.contains(c); });
}

NumberStyle numberStyleOf(const QStringList &texts)
{
    // "1.234,5", "12,5", "1.234.567" show a decimal comma; "1,234.5", "12.5", "1,234,567" a decimal point. "1,234" and
    // "1.234" can be either and decide nothing.
    static const QRegularExpression forComma(QStringLiteral(
        R"(^[^0-9a-zA-Z]*(?:[0-9]{1,3}(?:\.[0-9]{3})+,[0-9]+|[0-9]+,(?:[0-9]{1,2}|[0-9]{4,})|[0-9]{1,3}(?:\.[0-9]{3}){2,})[^0-9.,a-zA-Z]*$)"));
    static const QRegularExpression forPoint(QStringLiteral(
        R"(^[^0-9a-zA-Z]*(?:[0-9]{1,3}(?:,[0-9]{3})+\.[0-9]+|[0-9]*\.(?:[0-9]{1,2}|[0-9]{4,})|[0-9]{1,3}(?:,[0-9]{3}){2,})[^0-9.,a-zA-Z]*$)"));
    int balance = 0;
    for (const QString &text : texts) {
        const QString trimmed = text.trimmed();
        balance += forComma.match(trimmed).hasMatch() ? 1 : 0;
        balance -= forPoint.match(trimmed).hasMatch() ? 1 : 0;
    }
    return balance > 0 ? NumberStyle::Comma : NumberStyle::Point;
}

std::optional<Number> readNumber(const QString &text, NumberStyle style)
{
    const QRegularExpressionMatch match = outerPattern().match(text.trimmed());
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const bool open = !match.captured(u"open"_s).isEmpty();
    if (open != !match.captured(u"close"_s).isEmpty()) {
        return std::nullopt;
    }
    const std::optional<Digits> digits = splitDigits(match.captured(u"digits"_s), style);
    if (!digits || hasLeadingZero(digits->whole) || digits->whole.size() + digits->fraction.size() > mostDigits) {
        return std::nullopt;
    }
    const QString sign = match.captured(u"sign"_s);
    const QString suffix = match.captured(u"suffix"_s);
    const bool plus = sign.startsWith(u'+');
    const bool minus = (!sign.isEmpty() && !plus) || !match.captured(u"sign2"_s).isEmpty();
    if ((open && (plus || minus)) || (plus && minus)) {
        return std::nullopt;
    }
    Number number;
    number.value = (digits->whole + u'.' + digits->fraction + u'0').toDouble();
    number.decimals = static_cast<int>(digits->fraction.size());
    number.grouped = digits->grouped;
    number.percent = suffix.endsWith(u'%') || !match.captured(u"percent2"_s).isEmpty();
    number.parentheses = open;
    number.prefix = (plus ? u"+"_s : QString()) + match.captured(u"prefix"_s);
    if (!suffix.endsWith(u'%')) {
        number.suffix = suffix;
    }
    if (number.percent) {
        number.value /= 100;
    }
    if (minus || open) {
        number.value = -number.value;
    }
    return number;
}

} // namespace quorra
