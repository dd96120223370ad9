// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ocr/recogniser.h"

#include <string>

// The interface between the engine and its module.
namespace quorra::ocr {

/// Changes with everything that engine and module exchange: a module of another version is not used.
inline constexpr int interfaceVersion = 1;

/// Returns a recogniser that the caller owns, or null if the data cannot be used. `dataFolder` holds the recognition
/// data of the languages, which are joined by "+".
using MakeRecogniser = Recogniser *(*)(const std::string &dataFolder, const std::string &languages);

/// What the module exports as `quorraOcrModule`.
struct Module
{
    int version = interfaceVersion;
    MakeRecogniser makeRecogniser = nullptr;
};

inline constexpr const char *moduleSymbol = "quorraOcrModule";

} // namespace quorra::ocr
