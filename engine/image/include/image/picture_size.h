// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra {

/// What is rendered for one page and what its file says about it.
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
