// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number.h"

#include "base/currency.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra {

namespace {

constexpr qsizetype mostDigits = 15; // that a spreadsheet's numbers hold exactly

/// Returns whether the digits have decimals or groups, as sums of money mostly do.
bool isAmount(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral(R"([0-9][.,'’ \x{a0}\x{2009}\x{202f}][0-9])"));
    return pattern.match(text).hasMatch();
}

/// Replaces the full-width forms of East Asian fonts by the usual characters.
QString withoutFullWidth(QString text)
{
    constexpr char16_t first = 0xff01;
    constexpr char16_t last = 0xff5e;
    constexpr char16_t offset = 0xff01 - 0x21;
    for (QChar &c : text) {
        if (c.unicode() >= first && c.unicode() <= last) {
            c = QChar(static_cast<char16_t>(c.unicode() - offset));
        }
    }
    return text;
}

// Marks of notes: signs before or after the number, raised digits and a letter in parentheses after it, and a digit in
// parentheses close before it. A digit in parentheses after it can be anything.
constexpr QStringView markBefore(uR"((?:[*\x{2020}\x{2021}\x{a7}\x{b6}]{1,3} ?|\([0-9]\)(?=[0-9\p{Sc}])))");
constexpr QStringView markAfter(
    uR"( ?(?:[*\x{2020}\x{2021}\x{a7}\x{b6}]{1,3}|[\x{b9}\x{b2}\x{b3}\x{2070}\x{2074}-\x{2079}]{1,2}|\([a-z]\)))");

const QRegularExpression &outerPattern()
{
    static const QRegularExpression pattern(
        u"^(?<mark>"_s + markBefore.toString() + u")?(?<outside>"_s + currencyPattern() +
        uR"( ?)?(?<open>\()?(?<sign>[-+\x{2212}\x{2013}\x{25b3}] ?)?(?<prefix>)"_s + currencyPattern() + u" ?)?"_s +
        uR"((?<sign2>[-\x{2212}])?(?<digits>[0-9.,](?:[0-9.,'’ \x{a0}\x{2009}\x{202f}]*[0-9])?))"_s +
        uR"((?:[Ee](?<exponent>[-+][0-9]{1,3}))?)"_s + uR"((?<suffix>[ \x{a0}\x{202f}]?(?:[%‰]|)"_s +
        currencyPattern() + uR"())?(?<trailing>[-\x{2212}])?(?<close>\))?(?<percent2> ?%)?(?<mark2>)"_s +
        markAfter.toString() + u")?$"_s);
    return pattern;
}

QString withoutCurrency(QString text)
{
    static const QRegularExpression mark(u"(?<![A-Za-z])"_s + currencyPattern() + u"(?![A-Za-z])"_s);
    const QRegularExpressionMatch match = mark.match(text);
    return isOrdinaryWord(match.captured()) && !isAmount(text) ? text : text.remove(mark);
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

/// Returns whether the text contains more Latin letters in a row than a currency has.
bool hasLongWord(const QString &text)
{
    constexpr int mostOfCurrency = 3; // of currencyPattern(): "EUR", "SFr."
    int run = 0;
    for (const QChar c : text) {
        run = c.unicode() < 128 && c.isLetter() ? run + 1 : 0;
        if (run > mostOfCurrency) {
            return true;
        }
    }
    return false;
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
    bool spaced = false; ///< grouped by spaces
};

std::optional<Digits> splitDigits(const QString &text, const NumberHabits &habits)
{
    static const QRegularExpression point(QStringLiteral(
        R"(^(?<whole>[0-9]{1,3}(?:([,'’ \x{a0}\x{2009}\x{202f}])[0-9]{3}(?:\2[0-9]{3})*)|[0-9]*)(?:\.(?<fraction>[0-9]+))?$)"));
    static const QRegularExpression comma(QStringLiteral(
        R"(^(?<whole>[0-9]{1,3}(?:([.'’ \x{a0}\x{2009}\x{202f}])[0-9]{3}(?:\2[0-9]{3})*)|[0-9]*)(?:,(?<fraction>[0-9]+))?$)"));
    const QRegularExpressionMatch match = (habits.style == NumberStyle::Point ? point : comma).match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    Digits digits{match.captured(u"whole"_s), match.captured(u"fraction"_s)};
    const auto isSeparator = [](QChar c) { return !c.isDigit(); };
    digits.grouped = std::any_of(digits.whole.cbegin(), digits.whole.cend(), isSeparator);
    digits.spaced = std::any_of(digits.whole.cbegin(), digits.whole.cend(), [](QChar c) { return c.isSpace(); });
    digits.whole.removeIf(isSeparator);
    if ((digits.spaced && !habits.spacesGroup) || (digits.whole.isEmpty() && digits.fraction.isEmpty())) {
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
        // Most words with digits are decided without the regular expression.
        return isMostlyDigits(count) || (!hasLongWord(text) && isMostlyDigits(countOf(withoutCurrency(text))));
    }
    static const QString standIns = u"-–—†‡*….#"_s; // for a missing number
    return count.letters == 0 &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace() || standIns.contains(c); });
}

NumberHabits numberHabitsOf(const QStringList &texts, const NumberHabits &fallback)
{
    // "1.234,5", "12,5", "1.234.567" speak for the comma; "1,234.5", "12.5", "1,234,567" for the point. "1,234" and
    // "1.234" can be either and speak for neither.
    static const QRegularExpression forComma(QStringLiteral(
        R"(^[^0-9a-zA-Z]*(?:[0-9]{1,3}(?:\.[0-9]{3})+,[0-9]+|[0-9]+,(?:[0-9]{1,2}|[0-9]{4,})|[0-9]{1,3}(?:\.[0-9]{3}){2,})[^0-9.,a-zA-Z]*$)"));
    static const QRegularExpression forPoint(QStringLiteral(
        R"(^[^0-9a-zA-Z]*(?:[0-9]{1,3}(?:,[0-9]{3})+\.[0-9]+|[0-9]*\.(?:[0-9]{1,2}|[0-9]{4,})|[0-9]{1,3}(?:,[0-9]{3}){2,})[^0-9.,a-zA-Z]*$)"));
    static const QRegularExpression groups(
        QStringLiteral(R"(^[^0-9a-zA-Z]*[0-9]{1,3}(?:([.,'’ \x{a0}\x{2009}\x{202f}])[0-9]{3})(?:\1[0-9]{3})*\b)"));
    int balance = 0;
    int groupedBySpaces = 0;
    int groupedOtherwise = 0;
    for (const QString &text : texts) {
        const QString trimmed = text.trimmed();
        balance += forComma.match(trimmed).hasMatch() ? 1 : 0;
        balance -= forPoint.match(trimmed).hasMatch() ? 1 : 0;
        const QRegularExpressionMatch group = groups.match(trimmed);
        if (group.hasMatch()) {
            const QString separator = group.captured(1);
            const bool sign = separator == u"." || separator == u"," || separator == u"'" || separator == u"’";
            groupedOtherwise += sign ? 1 : 0;
            groupedBySpaces += sign ? 0 : 1;
        }
    }
    NumberHabits habits = fallback;
    if (balance != 0) {
        habits.style = balance > 0 ? NumberStyle::Comma : NumberStyle::Point;
    }
    if (groupedBySpaces != groupedOtherwise) {
        habits.spacesGroup = groupedBySpaces > groupedOtherwise;
    }
    return habits;
}

namespace {

/// The signs of a number; nothing if they contradict one another.
struct Signs
{
    bool plus = false;
    bool negative = false;
    NegativeForm form = NegativeForm::Minus;
};

std::optional<Signs> readSigns(const QRegularExpressionMatch &match)
{
    const QString sign = match.captured(u"sign"_s);
    const bool open = !match.captured(u"open"_s).isEmpty();
    const bool trailing = !match.captured(u"trailing"_s).isEmpty();
    const bool second = !match.captured(u"sign2"_s).isEmpty();
    const int signs = (sign.isEmpty() ? 0 : 1) + (open ? 1 : 0) + (trailing ? 1 : 0) + (second ? 1 : 0);
    if (open != !match.captured(u"close"_s).isEmpty() || signs > 1) {
        return std::nullopt;
    }
    Signs signsFound;
    signsFound.plus = sign.startsWith(u'+');
    signsFound.negative = signs == 1 && !signsFound.plus;
    signsFound.form = open                         ? NegativeForm::Parentheses
                      : trailing                   ? NegativeForm::TrailingMinus
                      : sign.startsWith(u'\u25b3') ? NegativeForm::Triangle
                                                   : NegativeForm::Minus;
    return signsFound;
}

/// Returns the currency of the amount; nothing if there are several. Empty if there is none.
std::optional<QString> currencyOf(const QRegularExpressionMatch &match)
{
    QString currency;
    for (const QString &part : {u"outside"_s, u"prefix"_s, u"suffix"_s}) {
        const QString found = match.captured(part).trimmed();
        if (found.isEmpty() || found == u"%" || found == u"‰") {
            continue;
        }
        if (!currency.isEmpty()) {
            return std::nullopt;
        }
        currency = found;
    }
    return currency;
}

} // namespace

std::optional<Number> readNumber(const QString &text, const NumberHabits &habits)
{
    const QRegularExpressionMatch match = outerPattern().match(withoutFullWidth(text.trimmed()));
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString written = match.captured(u"digits"_s);
    const std::optional<Signs> signs = readSigns(match);
    const std::optional<QString> currency = currencyOf(match);
    const std::optional<Digits> digits = splitDigits(written, habits);
    if (!signs || !currency || !digits || hasLeadingZero(digits->whole) ||
        digits->whole.size() + digits->fraction.size() > mostDigits ||
        (isOrdinaryWord(*currency) && !isAmount(written)) ||
        (match.captured(u"mark2"_s).endsWith(u')') && !isAmount(written)) || // "5(b)" can be a paragraph of a law
        (signs->plus && digits->spaced)) {                                   // "+49 123 456" calls a telephone
        return std::nullopt;
    }
    const QString suffix = match.captured(u"suffix"_s);
    const QString exponent = match.captured(u"exponent"_s);
    Number number;
    number.value =
        (digits->whole + u'.' + digits->fraction + u"0e"_s + (exponent.isEmpty() ? u"0"_s : exponent)).toDouble();
    number.decimals = static_cast<int>(digits->fraction.size());
    number.grouped = digits->grouped;
    number.percent = suffix.endsWith(u'%') || !match.captured(u"percent2"_s).isEmpty();
    number.scientific = !exponent.isEmpty();
    number.amount = !currency->isEmpty();
    number.negative = signs->form;
    number.prefix = match.captured(u"mark"_s) + (signs->plus ? u"+"_s : QString()) + match.captured(u"outside"_s) +
                    match.captured(u"prefix"_s);
    number.suffix = (suffix.endsWith(u'%') ? QString() : suffix) + match.captured(u"mark2"_s);
    if (number.scientific && (number.percent || number.grouped || !std::isfinite(number.value))) {
        return std::nullopt;
    }
    if (number.percent) {
        number.value /= 100;
    }
    if (signs->negative) {
        number.value = -number.value;
    }
    return number;
}

} // namespace quorra
