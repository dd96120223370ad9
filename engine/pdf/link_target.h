// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"

class LinkAction;
class PDFDoc;
class Page;

namespace quorra {

/// A place in the file that a link or an outline entry leads to.
struct LinkTarget
{
    int page = 0;   ///< counted from 1; 0 for none in this file
    double top = 0; ///< share of the height of the page as shown, from its top; 0 where the target is the whole page
};

/// Where the action leads to.
LinkTarget targetOf(PDFDoc &doc, const LinkAction *action);

/// Converts PDF page coordinates to those of RawPage: the origin is the corner of the crop box, and the page rotation
/// is applied.
Box shownBox(const Page &page, double x1, double y1, double x2, double y2);

} // namespace quorra
