// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <optional>

namespace quorra::office {

/// Where a paragraph is on the page when its lines have a fixed height. All in points, from the page's top.
struct LineLayout
{
    double top = 0;
    double bottom = 0;
    double lineHeight = 0; ///< 0 where the lines keep the font's own distance
};

/// The part of a line's fixed height that stands above the baseline: that is where LibreOffice and Word put it.
inline constexpr double baselinePart = 0.8;

/// Heights of lines in em. Lines closer than the least would touch; wider ones than the most are text with space in
/// between rather than lines of one text.
inline constexpr double leastLineHeight = 0.95;
inline constexpr double usualLineHeight = 1.2;
inline constexpr double mostLineHeight = 2.5;

/// The layout of the paragraph. The baselines of its neighbours, where there are any, keep a paragraph of one line,
/// which shows no distance of its own, from pushing them away. A paragraph without lines is where its box is.
LineLayout lineLayout(
    const model::Paragraph &paragraph, std::optional<double> baselineBefore = {},
    std::optional<double> baselineAfter = {});

/// The baselines of the paragraph's first line, and of the last one inside its box: lines that it took over from
/// another column do not count. Nothing without lines.
std::optional<double> firstBaseline(const model::Paragraph &paragraph);
std::optional<double> lastBaseline(const model::Paragraph &paragraph);

} // namespace quorra::office
