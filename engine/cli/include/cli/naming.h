// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"

#include <string>
#include <string_view>

namespace quorra {

/// Replaces the first number field in the text: a percent sign, optional digits and a lower-case d, such as "%d" or
/// "%04d". The digits are the minimum width (at most 20), padded with zeros. Nothing else in the text is special.
/// Without a field, the number is appended with four digits.
std::string withNumber(std::string_view text, int number);

/// Converts the template to a plain file name, without everything up to its last slash, control characters, and the
/// extension at its end (in any case). The result may be empty.
std::string cleanTemplate(std::string_view tempName, std::string_view extension);

/// Returns the full path of the file for page `position` (from 1) of `count`, if each page is written to a separate
/// file. A single page uses the output path, or the template if the options request it; several pages are numbered by
/// position.
std::string pageFilePath(const Options &options, int position, int count);

} // namespace quorra
