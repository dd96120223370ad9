// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <optional>

namespace quorra::office {

/// How a paragraph lies on the page once its lines have a fixed height: the baseline of such a line is at four fifths
/// of it. All in points, from the page's top.
struct LaidOut
{
    double top = 0;
    double bottom = 0;
    double lineHeight = 0; ///< 0 where the lines keep the font's own distance
};

/// The part of a line's fixed height that stands above the baseline.
constexpr double baselinePart = 0.8;

/// The paragraph's layout. The baselines of its neighbours, where there are any, keep a paragraph of one line, which
/// shows no distance of its own, from pushing them away. A paragraph without lines lies at its box.
LaidOut laidOut(
    const model::Paragraph &paragraph, std::optional<double> baselineBefore = {},
    std::optional<double> baselineAfter = {});

/// The baselines of the paragraph's first line, and of the last one inside its box: lines that it took over from
/// another column do not count. Nothing without lines.
std::optional<double> firstBaseline(const model::Paragraph &paragraph);
std::optional<double> lastBaseline(const model::Paragraph &paragraph);

} // namespace quorra::office
