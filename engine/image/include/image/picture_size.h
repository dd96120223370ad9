// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra {

/// The size at which a page is rendered, and the resolution recorded in its file.
struct PictureSize
{
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    double xres = 0; ///< dots per inch at which the page is rendered
    double yres = 0;
    double xtag = 0; ///< dots per inch that the file records
    double ytag = 0;
};

} // namespace quorra
