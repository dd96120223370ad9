// SPDX-License-Identifier: GPL-3.0-or-later
#include "entry_point.h"
#include "ocr/recogniser.h"
#include "platform/system_files.h"
#include "recognition_data.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <dlfcn.h>

#ifdef __APPLE__
#include <mach-o/dyld.h>
#endif

namespace quorra::ocr {

namespace {

namespace fs = std::filesystem;

std::string &chosenFolder()
{
    static std::string folder;
    return folder;
}

/// The folder of the executable itself, also if it was started by a link; empty if the system does not tell.
fs::path executableFolder()
{
    std::error_code error;
#ifdef __APPLE__
    char path[PATH_MAX];
    std::uint32_t size = sizeof path;
    if (_NSGetExecutablePath(path, &size) != 0) {
        return {};
    }
    return fs::canonical(path, error).parent_path();
#else
    return fs::canonical("/proc/self/exe", error).parent_path();
#endif
}

fs::path moduleFolder()
{
    return chosenFolder().empty() ? executableFolder() : fs::path(chosenFolder());
}

bool isIn(const fs::path &path, const fs::path &folder)
{
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

/// Returns null if the module, or a library that it needs, is missing, or if it is of another version.
const Module *loadModule()
{
    const fs::path folder = moduleFolder();
    // Without a folder, the system would look for the name elsewhere.
    if (folder.empty()) {
        return nullptr;
    }
    // It stays loaded: libraries that it needs have threads and exit handlers of their own.
    void *library = dlopen((folder / QUORRA_OCR_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        return nullptr;
    }
    const auto *module = static_cast<const Module *>(dlsym(library, moduleSymbol));
    return module != nullptr && module->version == interfaceVersion ? module : nullptr;
}

} // namespace

void setModuleFolder(const std::string &folder)
{
    chosenFolder() = folder;
}

guards::FileRules recognitionFiles()
{
    guards::FileRules rules = guards::linkedFolder(dataFolder());
    const fs::path folder = moduleFolder();
    rules.push_back({guards::Access::Read, (folder / QUORRA_OCR_MODULE).string()});
    // The program may have been copied to the home itself, with all the files there around it.
    const char *const home = std::getenv("HOME");
    std::error_code error;
    if (!folder.empty() && (home == nullptr || !isIn(fs::canonical(home, error), folder))) {
        rules.push_back({guards::Access::Read, folder.string()});
    }
    return rules;
}

std::unique_ptr<Recogniser> makeRecogniser(const std::string &languages)
{
    const std::string folder = dataFolder();
    const std::string installed = folder.empty() ? std::string() : installedOnes(languages, folder);
    if (installed.empty()) {
        return nullptr;
    }
    static const Module *const module = loadModule();
    return std::unique_ptr<Recogniser>(module != nullptr ? module->makeRecogniser(folder, installed) : nullptr);
}

} // namespace quorra::ocr
