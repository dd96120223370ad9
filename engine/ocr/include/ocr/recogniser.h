// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/recognised_picture.h"
#include "image/raster.h"
#include "platform/guards.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

/// Optical character recognition. Tesseract and all that it needs are in a module beside the executable, which is
/// loaded on first use: a conversion without scanned pages does not pay for it, and works without it.
namespace quorra::ocr {

/// How long one picture may take.
struct RecognitionLimits
{
    std::chrono::milliseconds processorTime{20'000}; ///< of the calling thread
};

/// Reads pictures of pages. One thread at a time can use an object; several objects can work at the same time.
class Recogniser
{
public:
    Recogniser() = default;
    virtual ~Recogniser() = default;
    Recogniser(const Recogniser &) = delete;
    Recogniser &operator=(const Recogniser &) = delete;

    /// Reads a picture of a page. `dotsPerInch` is its resolution, 0 if unknown. Bad pictures (empty, too large, only
    /// noise) have no words. Throws std::bad_alloc.
    virtual model::RecognisedPicture
    recognise(const Raster &picture, double dotsPerInch, const RecognitionLimits &limits = {}) = 0;
};

/// Returns a recogniser for languages joined by "+", the most important one first ("deu+eng"); those without data are
/// left out. Returns null, and prints nothing, if there is none left, or without the module or one of its libraries.
/// Thread-safe.
std::unique_ptr<Recogniser> makeRecogniser(const std::string &languages);

/// Returns the names of the installed recognition data in alphabetical order ("deu", "eng"), without those that are not
/// for a language; empty if there are none. Does not load the module.
std::vector<std::string> installedLanguages();

/// Returns the rules for the files that makeRecogniser() needs and the system does not have in its own folders.
guards::FileRules recognitionFiles();

/// Sets the folder of the module, before the first recogniser is made. By default, it is that of the executable.
void setModuleFolder(const std::string &folder);

} // namespace quorra::ocr
