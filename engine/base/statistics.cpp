// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/statistics.h"

#include <algorithm>
#include <cstddef>

namespace quorra {

double median(std::vector<double> values)
{
    if (values.empty()) {
        return 0;
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace quorra
