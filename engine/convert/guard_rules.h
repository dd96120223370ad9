// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "platform/guards.h"

#include <string>

namespace quorra {

/// Returns the files that a conversion with these options needs. `tempFolder` is the path of its temporary folder if it
/// exports through LibreOffice, or else empty. Nothing in the user's home is among them but the input, the output
/// folder, fonts, and the program itself if it is there.
guards::FileRules guardRules(const Options &options, const std::string &tempFolder);

} // namespace quorra
