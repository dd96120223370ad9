// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra {

/// Returns a regular expression for a currency in an amount: a sign ("€", "US$", "Kč") or a code of ISO 4217.
const QString &currencyPattern();

/// Returns whether the text is a code of ISO 4217 that is also an English word or a common abbreviation: "ALL 5" need
/// not be an amount.
bool isOrdinaryWord(const QString &currency);

} // namespace quorra
