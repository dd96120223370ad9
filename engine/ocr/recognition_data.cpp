// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition_data.h"

#include "ocr/recogniser.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace quorra::ocr {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view dataSuffix = ".traineddata";

/// Data that are not for a language: orientation and script, equations.
constexpr std::array<std::string_view, 2> otherData = {"osd", "equ"};

/// Where Debian has a folder for each major version of Tesseract.
constexpr const char *versionsFolder = "/usr/share/tesseract-ocr";

/// Where others keep the data.
constexpr std::array<const char *, 3> dataFolders = {
    "/usr/share/tessdata", "/usr/local/share/tessdata", "/opt/homebrew/share/tessdata"};

bool isFolder(const fs::path &path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

/// The one of the highest version; empty if there is none.
std::string newestVersionsData()
{
    fs::path newest;
    int highest = -1;
    std::error_code error;
    for (fs::directory_iterator it(versionsFolder, error), end; !error && it != end; it.increment(error)) {
        const int version = std::atoi(it->path().filename().c_str());
        if (version > highest && isFolder(it->path() / "tessdata")) {
            highest = version;
            newest = it->path() / "tessdata";
        }
    }
    return newest.string();
}

} // namespace

std::string dataFolder()
{
    if (const char *set = std::getenv("TESSDATA_PREFIX"); set != nullptr && *set != '\0') {
        return isFolder(set) ? set : std::string();
    }
    if (std::string folder = newestVersionsData(); !folder.empty()) {
        return folder;
    }
    const auto *found = std::find_if(dataFolders.begin(), dataFolders.end(), isFolder);
    return found != dataFolders.end() ? *found : std::string();
}

std::string installedOnes(const std::string &languages, const std::string &folder)
{
    std::string found;
    std::string_view left = languages;
    while (!left.empty()) {
        const std::size_t length = std::min(left.find('+'), left.size());
        const std::string language(left.substr(0, length));
        left.remove_prefix(std::min(length + 1, left.size()));
        std::error_code error;
        // A language is a plain name, not a path to somewhere else.
        if (!language.empty() && language.find("..") == std::string::npos &&
            fs::is_regular_file(fs::path(folder) / (language + std::string(dataSuffix)), error)) {
            found += (found.empty() ? "" : "+") + language;
        }
    }
    return found;
}

std::vector<std::string> installedLanguages()
{
    std::vector<std::string> languages;
    const std::string folder = dataFolder();
    std::error_code error;
    if (folder.empty()) {
        return languages;
    }
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().stem().string();
        if (it->path().extension() == dataSuffix &&
            std::find(otherData.begin(), otherData.end(), name) == otherData.end()) {
            languages.push_back(name);
        }
    }
    std::sort(languages.begin(), languages.end());
    return languages;
}

} // namespace quorra::ocr
