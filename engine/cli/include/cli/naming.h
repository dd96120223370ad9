// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"

#include <string>
#include <string_view>

namespace quorra {

/// The text with the number in place of its first number field, "%d" or "%04d": a percent sign, digits or none, a small
/// d. The digits are the least width (at most 20), filled with zeros. Nothing else in it has a meaning. Without a
/// field the number is appended, four digits wide.
std::string withNumber(std::string_view text, int number);

/// The template as a plain file name: what stands up to its last slash, control characters, and the extension (any
/// case) at its end are left out. May be empty.
std::string cleanTemplate(std::string_view tempName, std::string_view extension);

/// Full path of the file for page `position` (from 1) of `count`, where each page gets a file of its own. One page
/// alone takes the output path as given, or the template when the options want that; several are numbered by position.
std::string pageFilePath(const Options &options, int position, int count);

} // namespace quorra
