// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// The boxes around formulas that are on lines of their own and need more than one line of characters: fractions, and
/// sums and integrals with limits. Fractions in the middle of a sentence are left out, and the number of a formula does
/// not belong to it. The text of the page is upright.
std::vector<Box> findFormulas(const RawPage &page);

} // namespace quorra::model
