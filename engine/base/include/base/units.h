// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra {

inline constexpr double pointsPerInch = 72;
inline constexpr double inchesPerMetre = 1 / 0.0254;

} // namespace quorra
