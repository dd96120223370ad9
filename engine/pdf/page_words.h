// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

class TextOutputDev;

namespace quorra {

class DrawnCharacters;
class FontFamilies;
class MarkedContent;

/// Appends the words that the device found on its last page, in the library's reading order, with what they belong to.
/// Words that are covered by something other than an image are left out.
void readWords(
    const TextOutputDev &device, const MarkedContent &contents, const FontFamilies &families,
    DrawnCharacters &characters, model::RawPage &page);

} // namespace quorra
