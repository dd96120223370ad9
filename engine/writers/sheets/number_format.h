// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/number.h"
#include "odf/odf_styles.h"

namespace quorra::office {

/// Returns the name of a number format that shows the number as its table does.
QString numberFormat(StyleTable &styles, const Number &number);

} // namespace quorra::office
