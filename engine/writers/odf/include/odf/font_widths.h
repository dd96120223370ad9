// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QString>

#include <optional>

namespace quorra::office {

/// The width of a space in most proportional fonts, in em.
inline constexpr double usualSpaceWidth = 0.25;

/// The width of every character of a fixed-pitch font, in em, as in Courier New.
inline constexpr double fixedPitchWidth = 0.6;

/// Returns the common font family with known widths that is of the same kind as the family of the style.
QString measuredFamily(const model::Style &style);

/// Returns the width of the text in points, in measuredFamily() with the size, weight and slant of the style and
/// without kerning; nothing if it contains characters whose widths are not known.
std::optional<double> textWidth(const QString &text, const model::Style &style);

} // namespace quorra::office
