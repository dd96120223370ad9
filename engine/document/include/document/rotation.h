// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <utility>

namespace quorra::model {

/// A clockwise rotation of a page by multiples of 90 degrees.
struct PageRotation
{
    int quarters;  ///< multiples of 90 degrees, 0 to 3
    double width;  ///< of the page before the rotation
    double height; ///< of the page before the rotation

    std::pair<double, double> point(double x, double y) const;
    Box box(const Box &b) const;
    PageRotation inverse() const;
};

/// The rotation from the upright page, on which text of that rotation (0, 90, 180, 270) runs from left to right, to the
/// displayed page, whose size is given.
PageRotation rotationToPage(int rotation, double pageWidth, double pageHeight);

/// The direction (0, 90, 180, 270) in which most letters of the page run.
int mainRotation(const RawPage &page);

/// Rotates the page so that text of that rotation is upright, with rotation 0. The difference between the rotations of
/// two words stays the same.
RawPage rotatedUpright(RawPage page, int rotation);

/// Converts what was found on a page rotated by rotatedUpright() to the displayed page: its boxes, baselines and rules,
/// including those of cells. Tables keep their rows, columns and edges, and record their rotation (see Table).
void rotateToPage(Page &page, int rotation);
void rotateToPage(Paragraph &paragraph, int rotation, double uprightWidth, double uprightHeight);

/// The paragraph as if its page, whose displayed size is given, were rotated so that the paragraph is upright.
Paragraph uprightParagraph(Paragraph paragraph, double pageWidth, double pageHeight);

/// The table rotated upright, for writers that put it into a grid of their own. The positions of its boxes are valid
/// relative to one another only. A table with rotation 0 is returned as it is.
Table uprightTable(Table table);

} // namespace quorra::model
