// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace quorra::ocr {

/// Returns the folder with Tesseract's recognition data: the one in the environment variable TESSDATA_PREFIX if it is
/// set, else the first of the usual ones that exists; empty if there is none.
std::string dataFolder();

/// Returns those of the languages (joined by "+") whose data are in the folder, joined by "+".
std::string installedOnes(const std::string &languages, const std::string &folder);

} // namespace quorra::ocr
