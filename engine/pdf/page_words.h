// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

class TextOutputDev;

namespace quorra {

/// Appends the words that the device found on its last page, in the library's reading order.
void readWords(const TextOutputDev &device, model::RawPage &page);

} // namespace quorra
