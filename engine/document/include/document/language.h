// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

namespace quorra::model {

/// Returns the language tag of the document, by which browsers choose the glyphs of ideographs, and screen readers the
/// voice: that of the file, unless the script of most letters belongs to another language. Empty if neither is known.
QString languageOf(const Document &document);

} // namespace quorra::model
