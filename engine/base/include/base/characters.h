// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra {

/// Number of letters and digits; an ideograph counts as two, because it says as much as a syllable.
int letterCount(const QString &text);

/// Whether the text is a number as tables hold them: digits with signs, separators, currency or percent, or a dash
/// or dots that stand for a missing one.
bool looksNumeric(const QString &text);

} // namespace quorra
