// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

class TextOutputDev;

namespace quorra {

class MarkedContent;

/// Appends the words that the device found on its last page, in the library's reading order, with what they belong to.
void readWords(const TextOutputDev &device, const MarkedContent &contents, model::RawPage &page);

} // namespace quorra
