// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra::model {

/// Returns the letters and digits of a text, case-folded: equal for texts that differ only in spaces, punctuation and
/// capitals, such as an entry of the outline and its heading on the page.
QString textKey(const QString &text);

} // namespace quorra::model
