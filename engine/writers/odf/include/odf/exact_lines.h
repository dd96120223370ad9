// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_frames.h"

#include <vector>

namespace quorra::office {

/// The space above a line in a frame and its line height, in points.
struct LinePlace
{
    double above = 0;
    double height = 0;
};

/// Returns the places of lines with these baselines and font sizes in a frame whose top is at this y coordinate.
std::vector<LinePlace> placeLines(double top, const std::vector<double> &baselines, const std::vector<double> &sizes);

/// Returns the distance from the top of a frame to its first baseline, in points, for text of this font size.
double riseOf(double size);

/// Writes every line of the paragraph at its position; lines close below one another share a frame. Frames do not
/// extend beyond the right edge of the page.
void writeExactLines(const Sink &sink, const model::Paragraph &paragraph, double pageWidth, FrameAnchor anchor);

} // namespace quorra::office
