// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace quorra {

/// The middle value; 0 for none.
double median(std::vector<double> values);

} // namespace quorra
