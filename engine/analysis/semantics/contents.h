// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <cstddef>

namespace quorra::model {

namespace contents {

struct Thresholds
{
    std::size_t minEntries = 3; ///< of a table of contents whose entries have no links; fewer may be prices
    double levelIndent = 4;     ///< points between the left edges of two levels
    std::size_t maxLines = 3;   ///< of an entry
};

inline constexpr Thresholds thresholds;

} // namespace contents

/// Finds the entries of tables of contents (Paragraph::contentsEntry): lines that end in a tab and a page number, and
/// that the file's tags call entries, that lead to pages of the document, or whose page numbers never go back over
/// several entries with leaders.
void findContents(Document &document);

} // namespace quorra::model
