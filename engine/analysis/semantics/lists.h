// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <cstddef>

namespace quorra::model {

namespace lists {

struct Thresholds
{
    double levelIndent = 5;         ///< points between the marks of two levels of a list
    std::size_t maxInterrupted = 8; ///< lists that items after other text may go on with, the latest ones
};

inline constexpr Thresholds thresholds;

} // namespace lists

/// Sets the levels of the list items of the document. What decides, in this order: the file's tags, the item that the
/// number counts on from (also after other text), numbers of several parts ("2.1"), and indents.
void assignListLevels(Document &document);

} // namespace quorra::model
