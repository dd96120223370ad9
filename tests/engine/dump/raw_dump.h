// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <iosfwd>

namespace quorra::test {

/// Prints the contents of a page as read, before the analysis: a line for each word, rule, fill, picture and curve.
/// Boxes are in tenths of points.
void dumpRaw(const model::RawPage &page, std::ostream &out);

} // namespace quorra::test
