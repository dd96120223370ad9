// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

namespace quorra {

/// The language tag of a document: browsers choose the shapes of ideographs, and readers the voice, by it. It is what
/// the file says, unless most letters belong to a script that tells another language. Empty when nothing tells.
QString languageOf(const model::Document &document);

} // namespace quorra
