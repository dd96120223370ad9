// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra {

/// Returns the number of letters and digits; an ideograph counts as two, because it corresponds to a syllable.
int letterCount(const QString &text);

} // namespace quorra
