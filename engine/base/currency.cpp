// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/currency.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra {

namespace {

/// The codes of ISO 4217 for money in use, and some that the euro replaced.
constexpr QLatin1String codes(
    "AED AFN ALL AMD ANG AOA ARS AUD AWG AZN BAM BBD BDT BGN BHD BIF BMD BND BOB BRL BSD BTN BWP BYN BZD CAD CDF CHF "
    "CLP CNY COP CRC CUP CVE CZK DJF DKK DOP DZD EGP ERN ETB EUR FJD FKP GBP GEL GHS GIP GMD GNF GTQ GYD HKD HNL HTG "
    "HUF IDR ILS INR IQD IRR ISK JMD JOD JPY KES KGS KHR KMF KPW KRW KWD KYD KZT LAK LBP LKR LRD LSL LYD MAD MDL MGA "
    "MKD MMK MNT MOP MRU MUR MVR MWK MXN MYR MZN NAD NGN NIO NOK NPR NZD OMR PAB PEN PGK PHP PKR PLN PYG QAR RON RSD "
    "RUB RWF SAR SBD SCR SDG SEK SGD SHP SLE SOS SRD SSP STN SVC SYP SZL THB TJS TMT TND TOP TRY TTD TWD TZS UAH UGX "
    "USD UYU UZS VED VES VND VUV WST XAF XAG XAU XCD XDR XOF XPD XPF XPT YER ZAR ZMW ZWG ZWL ATS BEF DEM ESP FIM FRF "
    "GRD HRK IEP ITL LTL LVL NLG PTE SIT SKK EEK");

/// Codes of these that are words or abbreviations of other things.
constexpr QLatin1String ordinaryWords("ALL AMD COP CUP ETB FIM GEL LAK MAD MOP NAD PEN PTE SIT SOS SSP STN TOP TRY");

/// Signs made of letters, as regular expressions. Signs of a single letter are left out: they can be anything.
constexpr QStringView letterSigns(
    uR"(z\x{142}|K\x{10d}|[Kk]r\.?|Ft|[Ll]ei|\x{43b}\x{432}\.?|\x{440}\x{443}\x{431}\.?|\x{433}\x{440}\x{43d}\.?|Rs\.?|Rp\.?|RM|S?Fr\.|Tk|DM|TL|\x{5186}|\x{5143}|\x{c6d0})");

} // namespace

const QString &currencyPattern()
{
    // A sign can follow the letters of its country ("US$").
    static const QString pattern =
        uR"((?:[A-Z]{0,3}\p{Sc}|)"_s + letterSigns.toString() + u'|' + QString(codes).replace(u' ', u'|') + u')';
    return pattern;
}

bool isOrdinaryWord(const QString &currency)
{
    static const QStringList words = QString(ordinaryWords).split(u' ');
    return words.contains(currency.trimmed());
}

} // namespace quorra
