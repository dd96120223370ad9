// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/page.h"
#include "engine/pdf/document.h"

namespace quorra {

/// How much of a page is worth looking at: plain text needs neither pictures nor links.
enum class Collect { TextAndRules, Everything };

/// Everything that one page holds, found in one pass over it. Pages count from 1; a page that cannot be read gives an
/// empty one of its size.
model::RawPage collectPage(Document &document, int pageNumber, Collect what = Collect::Everything);

} // namespace quorra
