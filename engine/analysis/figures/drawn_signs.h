// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

namespace quorra::model {

/// The page with signs that are drawn rather than written as words: check boxes beside a text ("☐", with a mark in them
/// "☒" or "☑"), and dots and squares before several lines ("•", "▪"). The lines and shapes of these are left out. The
/// text of the page is upright. Words keep their order but may get other places in the list.
RawPage withDrawnSigns(RawPage page);

} // namespace quorra::model
