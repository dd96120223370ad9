// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpression>
#include <QStringView>

namespace quorra::model {

/// Names and abbreviations of a page, before its number: alternatives of a regular expression.
inline constexpr QStringView pageNames =
    u"page|p\\.|seite|s\\.|pagina|página|pág\\.|strona|sida|side|sivu|oldal|стр\\.|страница";

/// What stands between the number of a page and the number of pages, likewise.
inline constexpr QStringView pageCountSeparators = u"/|of|von|de|sur|di|z|av|af|van|из";

inline constexpr QRegularExpression::PatternOptions pageNumberOptions =
    QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption;

} // namespace quorra::model
