// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <utility>

namespace quorra::model {

/// A turn of a page clockwise by quarters of a circle.
struct Turn
{
    int quarters;  ///< 0 to 3
    double width;  ///< of the page before the turn
    double height; ///< of the page before the turn

    std::pair<double, double> point(double x, double y) const;
    Box box(const Box &b) const;
    Turn back() const;
};

/// The turn from the page read upright, on which text of that rotation (0, 90, 180, 270) runs from left to right, to
/// the page of this size as shown.
Turn turnToPage(int rotation, double pageWidth, double pageHeight);

/// The direction (0, 90, 180, 270) in which most letters of the page run.
int mainRotation(const RawPage &page);

/// The page turned so that text of that rotation runs upright; words of other rotations keep their difference to it.
RawPage turnedUpright(RawPage page, int rotation);

/// Puts what was found on a page turned by turnedUpright() back to where it stands on the page as shown: afterwards all
/// boxes, baselines and rules count on that page, those of cells included. Tables keep their rows, columns and edges
/// and remember how far they are turned (see Table).
void turnBack(Page &page, int rotation);
void turnBack(Paragraph &paragraph, int rotation, double uprightWidth, double uprightHeight);

/// The paragraph as if its page, of this size as shown, were rotated so that the paragraph runs from left to right.
Paragraph uprightParagraph(Paragraph paragraph, double pageWidth, double pageHeight);

/// The table read upright, for writers that set it in a grid of their own: the places of its boxes towards one another
/// count, not those on the page. A table that is not turned comes back as it is.
Table uprightTable(Table table);

} // namespace quorra::model
