// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/page_frame.h"

namespace quorra::ocr {

Box PageFrame::onGiven(const Box &box) const
{
    Box rotated = box;
    switch (rotation) {
    case 90:
        rotated = {width - box.bottom, box.left, width - box.top, box.right};
        break;
    case 180:
        rotated = {width - box.right, height - box.bottom, width - box.left, height - box.top};
        break;
    case 270:
        rotated = {box.top, height - box.right, box.bottom, height - box.left};
        break;
    default:
        break;
    }
    return {rotated.left / scale, rotated.top / scale, rotated.right / scale, rotated.bottom / scale};
}

double PageFrame::baselineOnGiven(double y) const
{
    switch (rotation) {
    case 90:
        return (width - y) / scale;
    case 180:
        return (height - y) / scale;
    default:
        return y / scale;
    }
}

} // namespace quorra::ocr
