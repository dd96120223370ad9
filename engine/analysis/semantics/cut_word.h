// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <cstddef>

namespace quorra::model {

/// Makes the last `length` characters of the word at `index` a word of their own, unless they are the whole word.
/// Returns the index of the word that consists of them.
std::size_t cutWordEnd(Line &line, std::size_t index, qsizetype length);

} // namespace quorra::model
