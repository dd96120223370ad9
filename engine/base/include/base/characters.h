// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra {

/// Returns the number of letters and digits; an ideograph counts as two, because it corresponds to a syllable.
int letterCount(const QString &text);

/// Returns true for a number as it occurs in tables: digits with sign, separators, currency or percent sign; or a dash
/// or dots for a missing value.
bool looksNumeric(const QString &text);

} // namespace quorra
