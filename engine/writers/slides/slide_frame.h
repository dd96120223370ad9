// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_frames.h"
#include "slide_boxes.h"

namespace quorra::office {

/// The way from upright coordinates to the slide: rotated text is laid out as if it were upright, and its frame is
/// rotated clockwise by `rotation` (0, 90, 180 or 270 degrees). Width and height are those of the slide, in points.
struct SlideOrientation
{
    int rotation = 0;
    double width = 0;
    double height = 0;
};

/// Return a box or line in upright coordinates as it is on the slide.
Box onSlide(const Box &box, const SlideOrientation &orientation);
model::Rule onSlide(const model::Rule &rule, const SlideOrientation &orientation);

/// Where and how a text frame is on its slide.
struct FrameLook
{
    BoxKind kind = BoxKind::Text; ///< a title and an outline are placeholders
    Box box;                      ///< in upright coordinates
    SlideOrientation orientation;
    bool wraps = true; ///< text that does not wrap extends beyond the box if necessary, away from the alignment's side
    model::Alignment alignment = model::Alignment::Left;
};

/// Begins a text frame; its paragraphs follow.
[[nodiscard]] TextFrame beginSlideFrame(const Sink &sink, const FrameLook &look);

} // namespace quorra::office
