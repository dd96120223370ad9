// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra::model {

/// Whether the text ends as a sentence, a heading or a list entry does; closing quotes and brackets may follow.
bool endsSentence(const QString &text);

} // namespace quorra::model
