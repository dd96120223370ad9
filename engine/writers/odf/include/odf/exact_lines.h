// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_frames.h"

#include <vector>

namespace quorra::office {

/// A line in a frame of lines: how much space is above it and how high it is, in points, so that its baseline
/// comes to its place.
struct LinePlace
{
    double above = 0;
    double height = 0;
};

/// Places for lines with these baselines and sizes of type, in a frame that begins at the given y. The baseline of a
/// line of fixed height is at four fifths of it.
std::vector<LinePlace> placeLines(double top, const std::vector<double> &baselines, const std::vector<double> &sizes);

/// How far above the first baseline a frame of lines begins.
double riseOf(double size);

/// Writes every line of the paragraph at its place, lines that follow one another closely in one frame. Frames end at
/// the page's right edge, which is at this x.
void writeExactLines(const Sink &sink, const model::Paragraph &paragraph, double pageWidth, FrameAnchor anchor);

} // namespace quorra::office
