// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/size_text.h"

#include <QLatin1String>

#include <array>
#include <charconv>

namespace {

constexpr double kilo = 1000.0;
constexpr double mega = 1000000.0;
constexpr qint32 megabytesFrom = 1048576; // this threshold is binary, the divisors are decimal: on purpose

/// Three decimals, rounded like printf (ties to even), independent of the locale.
QString threeDecimals(double value)
{
    std::array<char, 32> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 3).ptr;
    return QString::fromLatin1(digits.data(), end - digits.data());
}

} // namespace

qint32 listedSize(qint64 bytes)
{
    return static_cast<qint32>(bytes);
}

QString addedSizeText(qint32 bytes)
{
    if (bytes <= 0) {
        return {};
    }
    return threeDecimals(bytes / kilo).leftJustified(11) + QLatin1String(" KB");
}

QString droppedSizeText(qint32 bytes)
{
    if (bytes <= 0) {
        return {};
    }
    const bool inKilobytes = bytes <= megabytesFrom;
    QString number = threeDecimals(bytes / (inKilobytes ? kilo : mega)).rightJustified(14);
    number.replace(QLatin1Char('.'), QLatin1Char(','));
    return number + (inKilobytes ? QLatin1String(" KB") : QLatin1String(" MB"));
}
