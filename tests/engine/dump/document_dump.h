// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <iosfwd>

namespace quorra::test {

/// Prints what the analysis found, for people and for diff: one line for each paragraph, cell and figure, lengths in
/// whole points, type sizes and line widths in tenths. The names are those of the printed page, not of the classes,
/// so that the text stays the same when the classes change.
///
/// A box is written as left,top-right,bottom. Characters that cannot be seen are written as \u{AD}; the sign ↵ is a
/// line break inside a paragraph.
void dump(const model::Document &document, std::ostream &out);

} // namespace quorra::test
