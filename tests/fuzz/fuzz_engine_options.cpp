// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the engine's parsing of options, page range, file names and passwords on random arguments.
#include "fuzz_support.h"

#include "base/failure.h"
#include "cli/naming.h"
#include "cli/options.h"
#include "cli/page_range.h"
#include "pdf/passwords.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

using namespace quorra;

namespace {

std::vector<std::string> argumentsOf(const std::string &input)
{
    std::vector<std::string> arguments;
    for (std::size_t begin = 0; begin <= input.size();) {
        const std::size_t end = std::min(input.find('\0', begin), input.size());
        arguments.push_back(input.substr(begin, end - begin));
        begin = end + 1;
    }
    return arguments;
}

bool isPositive(const std::optional<int> &number)
{
    return !number || *number > 0;
}

void checkOptions(const Options &options, const std::vector<std::string> &arguments)
{
    fuzz::require(options.outputPath == arguments.back(), "the last argument is the output");
    fuzz::require(options.inputPath == arguments[arguments.size() - 2], "the one before it is the input");
    for (const auto &number :
         {options.firstPage, options.lastPage, options.width, options.height, options.xres, options.yres}) {
        fuzz::require(isPositive(number), "numbers are positive");
    }
    const std::string extension = outputExtension(options.outputPath);
    fuzz::require(extension.empty() || extension.front() == '.', "an extension has its dot");
    fuzz::require(extension.find('/') == std::string::npos, "an extension is part of a file name");
}

void checkNames(const Options &options)
{
    const std::string folder = options.outputPath.substr(0, options.outputPath.rfind('/') + 1);
    const std::string extension = outputExtension(options.outputPath);
    std::vector<std::string> paths;
    for (int page = 1; page <= 12; ++page) {
        paths.push_back(pageFilePath(options, page, 12));
        const std::string &path = paths.back();
        fuzz::require(path.compare(0, folder.size(), folder) == 0, "every file is in the output folder");
        fuzz::require(path.find('/', folder.size()) == std::string::npos, "no file is in a subfolder");
        // An output path without one is rejected before any file is named.
        fuzz::require(extension.empty() || outputExtension(path) == extension, "the extension stays");
    }
    std::sort(paths.begin(), paths.end());
    fuzz::require(std::adjacent_find(paths.begin(), paths.end()) == paths.end(), "no two pages share a file");
    fuzz::require(
        options.tempNameForSingle || pageFilePath(options, 1, 1) == options.outputPath,
        "a single file has the output path, unless the template is to serve it too");
}

void checkRange(const Options &options)
{
    for (const int count : {1, 2, 1000}) {
        try {
            const PageRange range = pageRange(options, count);
            fuzz::require(1 <= range.first && range.first <= range.last && range.last <= count, "pages that exist");
        } catch (const Failure &failure) {
            fuzz::require(failure.status() == ExitStatus::Usage, "a wrong range is wrong usage");
        }
    }
}

void checkPasswords(const Options &options)
{
    std::vector<PasswordPair> pairs = passwordsToTry(options.userPassword, options.ownerPassword);
    fuzz::require(
        !pairs.empty() && pairs.front() == PasswordPair{options.userPassword, options.ownerPassword},
        "the passwords as given come first");
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        fuzz::require(std::count(pairs.begin(), pairs.end(), pairs[i]) == 1, "no pair is tried twice");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::vector<std::string> arguments = argumentsOf(std::string(data, data + size));
    try {
        const Options options = parseOptions(arguments);
        checkOptions(options, arguments);
        checkNames(options);
        checkRange(options);
        checkPasswords(options);
    } catch (const Failure &failure) {
        fuzz::require(failure.status() == ExitStatus::Usage, "what is not understood is wrong usage");
        fuzz::require(std::string(failure.what()).find('\n') == std::string::npos, "a failure message is one line");
    }
    return 0;
}
