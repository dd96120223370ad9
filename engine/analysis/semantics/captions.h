// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Tells the captions of the page which figure they belong to: the nearer one of those right before and after them in
/// reading order. A caption next to a table that is nearer, or far from figures, belongs to none. The figures have
/// their ids.
void linkCaptions(Page &page);

} // namespace quorra::model
