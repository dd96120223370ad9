// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ocr/recogniser.h"

#include <string>

namespace quorra::ocr {

/// Returns a recogniser that the caller owns, or null if the data cannot be used. `dataFolder` holds the recognition
/// data of the languages, which are joined by "+".
Recogniser *makeTesseractRecogniser(const std::string &dataFolder, const std::string &languages);

} // namespace quorra::ocr
