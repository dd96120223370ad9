// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/list_number.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace quorra::model {

namespace {

struct Thresholds
{
    qsizetype maxSigns = 1;  ///< characters; before and after the number: "(3)"
    qsizetype maxDigits = 4; ///< digits; longer numbers are not counted
};
constexpr Thresholds thresholds;

constexpr int lettersInAlphabet = 26;

constexpr std::array<std::pair<int, const char *>, 13> romanParts = {{
    {1000, "m"},
    {900, "cm"},
    {500, "d"},
    {400, "cd"},
    {100, "c"},
    {90, "xc"},
    {50, "l"},
    {40, "xl"},
    {10, "x"},
    {9, "ix"},
    {5, "v"},
    {4, "iv"},
    {1, "i"},
}};

QString toRoman(int value)
{
    QString text;
    for (const auto &[part, letters] : romanParts) {
        for (; value >= part; value -= part) {
            text += QLatin1String(letters);
        }
    }
    return text;
}

/// Returns the value of a lower-case Roman numeral; nothing if it is not written as usual.
std::optional<int> fromRoman(const QString &text)
{
    int value = 0;
    QString rest = text;
    for (const auto &[part, letters] : romanParts) {
        while (rest.startsWith(QLatin1String(letters))) {
            value += part;
            rest.remove(0, QLatin1String(letters).size());
        }
    }
    return rest.isEmpty() && value > 0 && toRoman(value) == text ? std::optional(value) : std::nullopt;
}

bool isLatinLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Returns the numbers that the text without its signs can be, the usual one first.
std::vector<ListNumber> readings(const QString &core)
{
    std::vector<ListNumber> result;
    const auto add = [&](int value, NumberFormat format) { result.push_back({{}, value, format, {}}); };
    if (std::all_of(core.begin(), core.end(), isDigit)) {
        if (core.size() <= thresholds.maxDigits) {
            add(core.toInt(), NumberFormat::Decimal);
        }
        return result;
    }
    const bool upper = core.front().isUpper();
    const bool sameCase = std::all_of(core.begin(), core.end(), [&](QChar c) { return c.isUpper() == upper; });
    if (!sameCase) {
        return result;
    }
    const QString low = core.toLower();
    if (low.size() == 1) {
        add(low.front().unicode() - u'a' + 1, upper ? NumberFormat::UpperLetter : NumberFormat::LowerLetter);
    }
    if (const std::optional<int> roman = fromRoman(low)) {
        add(*roman, upper ? NumberFormat::UpperRoman : NumberFormat::LowerRoman);
        if (low == QLatin1String("i")) {
            std::swap(result.front(), result.back());
        }
    }
    return result;
}

} // namespace

std::optional<ListNumber> listNumber(const QString &mark, const std::optional<ListNumber> &previous)
{
    const auto isPart = [](QChar c) { return isDigit(c) || isLatinLetter(c); };
    const auto begin = std::find_if(mark.begin(), mark.end(), isPart);
    const auto end = std::find_if_not(begin, mark.end(), isPart);
    const bool hasDigit = std::any_of(begin, end, isDigit);
    const bool hasLetter = std::any_of(begin, end, isLatinLetter);
    if (begin == end || begin - mark.begin() > thresholds.maxSigns || mark.end() - end > thresholds.maxSigns ||
        hasDigit == hasLetter) {
        return {};
    }
    std::vector<ListNumber> numbers = readings(QString(begin, end - begin));
    if (numbers.empty()) {
        return {};
    }
    for (ListNumber &number : numbers) {
        number.before = QString(mark.begin(), begin - mark.begin());
        number.after = QString(end, mark.end() - end);
    }
    const auto continuing = std::find_if(numbers.begin(), numbers.end(), [&](const ListNumber &number) {
        return previous && continuesNumbers(*previous, number);
    });
    return continuing != numbers.end() ? *continuing : numbers.front();
}

std::vector<ListNumber> possibleNumbers(const QString &mark)
{
    const auto isPart = [](QChar c) { return isDigit(c) || isLatinLetter(c); };
    const auto end = std::find_if(mark.rbegin(), mark.rend(), isPart).base();
    if (end == mark.begin()) {
        return {};
    }
    const auto isOther =
        isDigit(*(end - 1)) ? [](QChar c) { return !isDigit(c); } : [](QChar c) { return !isLatinLetter(c); };
    const auto begin = std::find_if(std::make_reverse_iterator(end), mark.rend(), isOther).base();
    const QString core(begin, end - begin);
    // Counting does not write leading zeros, and what follows a number is a sign.
    if ((core.size() > 1 && core.front() == u'0') ||
        std::any_of(end, mark.end(), [](QChar c) { return c.isLetterOrNumber(); })) {
        return {};
    }
    std::vector<ListNumber> numbers = readings(core);
    for (ListNumber &number : numbers) {
        number.before = QString(mark.begin(), begin - mark.begin());
        number.after = QString(end, mark.end() - end);
    }
    return numbers;
}

bool looksLike(const ListNumber &one, const ListNumber &other)
{
    return one.format == other.format && one.before == other.before && one.after == other.after;
}

bool continuesNumbers(const ListNumber &previous, const ListNumber &next)
{
    const bool sameLook = looksLike(previous, next);
    const bool letters = next.format == NumberFormat::LowerLetter || next.format == NumberFormat::UpperLetter;
    return sameLook && next.value == previous.value + 1 && (!letters || next.value <= lettersInAlphabet);
}

} // namespace quorra::model
