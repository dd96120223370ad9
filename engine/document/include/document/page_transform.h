// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Moves and scales a page: x becomes x * scaleX + shiftX. Font sizes are multiplied by the smaller of the two scales,
/// so that lines still fit.
struct Transform
{
    double scaleX = 1;
    double scaleY = 1;
    double shiftX = 0;
    double shiftY = 0;
};

/// Transforms everything on the page and sets its size; scaled styles are added to the table. The regions of the file
/// that its figures show do not change.
void transformPage(Page &page, StyleTable &styles, const Transform &transform, double width, double height);

/// Returns whether the pages have the same size; differences below a point are due to rounding.
bool haveSameSize(const Page &a, const Page &b);

/// Converts all colours of text, lines and backgrounds to gray, or to black and white.
void reduceColours(Document &document, ColourDepth depth);

} // namespace quorra::model
