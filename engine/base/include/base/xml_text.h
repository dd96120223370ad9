// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra {

/// The text without characters that XML forbids: control characters, lone surrogates and non-characters.
QString xmlText(const QString &text);

} // namespace quorra
