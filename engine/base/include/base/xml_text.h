// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra {

/// Returns the text without characters forbidden in XML: control characters, unpaired surrogates and non-characters.
QString xmlText(const QString &text);

} // namespace quorra
