// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "document/page_transform.h"

namespace quorra {

/// Gives the pages the size that -width and -height ask for, by the rule of paperSize(). Throws Failure(Limit) as it
/// does. Does nothing without them.
void fitToOptions(model::Document &document, const Options &options, office::MovedPictures &pictures);

} // namespace quorra
