// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/paper_size.h"
#include "cli/options.h"

#include <optional>

namespace quorra {

/// Resolution that turns an asked width or height in pixels into paper where the options name none, dots per inch.
inline constexpr int paperResolution = 96;

/// The paper that an asked width or height stands for; one of the two alone keeps the shape of the page, given in
/// points. Nothing asked gives none. Throws Failure(Limit) for paper larger than PDF itself allows.
std::optional<PaperSize> paperSize(const Options &options, double pageWidth, double pageHeight);

} // namespace quorra
