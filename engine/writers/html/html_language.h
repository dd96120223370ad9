// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

namespace quorra {

/// The language tag of a document whose script tells its language: browsers choose the shapes of ideographs, and
/// readers the voice, by it. Empty when the script is that of many languages.
QString languageOf(const model::Document &document);

} // namespace quorra
