// SPDX-License-Identifier: GPL-3.0-or-later
#include "entry_point.h"

#include "module/tesseract_recogniser.h"

// NOLINTNEXTLINE(readability-identifier-naming): a symbol of the module
extern "C" __attribute__((visibility("default")))
const quorra::ocr::Module quorraOcrModule = {quorra::ocr::interfaceVersion, quorra::ocr::makeTesseractRecogniser};
