// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra {

/// The size of a sheet of paper, in whole points.
struct PaperSize
{
    int width = 0;
    int height = 0;
};

} // namespace quorra
