// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QString>

#include <optional>

namespace quorra::office {

/// The common font family whose widths are known, of the same kind as the style's own.
QString measuredFamily(const model::Style &style);

/// The width of the text in points, set in measuredFamily() with the style's size, weight and slant and without
/// kerning; nothing when it holds characters whose widths are not known.
std::optional<double> textWidth(const QString &text, const model::Style &style);

} // namespace quorra::office
