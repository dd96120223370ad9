// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <optional>

namespace quorra::office {

/// The position of a paragraph on the page if its lines have a fixed height, in points from the top of the page.
struct LineLayout
{
    double top = 0;
    double bottom = 0;
    double lineHeight = 0; ///< 0 if the lines have the natural height of their font
};

/// The share of a line's fixed height that is above the baseline, in LibreOffice and in Word.
inline constexpr double baselineShare = 0.8;

/// Heights of lines, in em.
struct LineHeights
{
    double min = 0.95;  ///< characters of closer lines would touch
    double usual = 1.2; ///< of a paragraph of one line, which has no line distance
    double max = 2.5;   ///< lines farther apart have blank space in between
};
inline constexpr LineHeights lineHeights;

/// Returns the layout of the paragraph. A paragraph of one line has no line distance; the baselines of the paragraphs
/// before and after it, if there are any, limit its line height. A paragraph without lines has the position of its
/// box.
LineLayout lineLayout(
    const model::Paragraph &paragraph, std::optional<double> baselineBefore = {},
    std::optional<double> baselineAfter = {});

/// Return the baselines of the paragraph's first line and of the last line inside its box: lines that continue in
/// another column do not count. Without lines there is none.
std::optional<double> firstBaseline(const model::Paragraph &paragraph);
std::optional<double> lastBaseline(const model::Paragraph &paragraph);

} // namespace quorra::office
