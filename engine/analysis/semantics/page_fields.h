// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <cstddef>

namespace quorra::model {

namespace pageFields {

struct Thresholds
{
    std::size_t maxDistance = 2;  ///< pages to the next one whose number counts on: left and right pages may differ
    qsizetype maxNameLength = 16; ///< characters before a number in which a name such as "Page: " is looked for
};

inline constexpr Thresholds thresholds;

} // namespace pageFields

/// Finds the words of page headers and footers that are the page's number or the number of pages, and makes them words
/// of their own (Word::field). A page number counts on with the pages near it, is the page's label, or is the number of
/// the page and written like one ("Page 3", "- 3 -"). The number of pages follows it ("3 of 12").
void findPageFields(Document &document);

} // namespace quorra::model
