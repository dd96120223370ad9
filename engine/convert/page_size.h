// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "document/document.h"

namespace quorra {

/// Scales the pages to the size requested with -width and -height, as computed by paperSize(). Throws Failure(Limit)
/// like paperSize(). Does nothing without these options.
void fitToOptions(model::Document &document, const Options &options);

} // namespace quorra
