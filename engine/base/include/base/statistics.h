// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace quorra {

/// Returns the median; 0 if there are no values.
double median(std::vector<double> values);

} // namespace quorra
