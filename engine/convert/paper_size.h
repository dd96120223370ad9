// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/paper_size.h"
#include "cli/options.h"

#include <optional>

namespace quorra {

/// Default resolution for converting a requested size in pixels to a paper size, in dots per inch.
inline constexpr int paperResolution = 96;

/// Returns the paper size for the requested width and height; none if neither is given. If only one is given, the other
/// one keeps the proportions of the page, whose size is in points. Throws Failure(Limit) for paper larger than PDF
/// allows.
std::optional<PaperSize> paperSize(const Options &options, double pageWidth, double pageHeight);

} // namespace quorra
