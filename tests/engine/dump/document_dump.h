// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <iosfwd>

namespace quorra::test {

/// Prints the result of the analysis, for readers and for diff: one line for each paragraph, cell and figure, with
/// lengths in whole points, and font sizes and line widths in tenths. The names are those of printed pages rather than
/// of classes, so that the text does not depend on the classes.
///
/// A box is printed as left,top-right,bottom. Invisible characters are printed as \u{AD}; ↵ is a line break in a
/// paragraph.
void dump(const model::Document &document, std::ostream &out);

} // namespace quorra::test
