// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// Whether the paragraph is a listing: its line ends are meant and all its letters are equally wide.
bool isListing(const Paragraph &paragraph);

/// A listing's lines, each in its looks, with the blanks that put every word into the column in which it stands on the
/// page. The leftmost line begins in the first column. Empty for what is no listing.
std::vector<std::vector<Run>> listingLines(const Paragraph &paragraph);

} // namespace quorra::model
