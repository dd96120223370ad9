// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <iosfwd>

namespace quorra::test {

/// Prints what the reading of one page found, before any analysis: a line for each word, line, fill, picture and
/// curve. Boxes in tenths of points, since this is for looking closely.
void dumpRaw(const model::RawPage &page, std::ostream &out);

} // namespace quorra::test
