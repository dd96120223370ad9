// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system_files.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>
#ifdef __linux__
#include <elf.h>
#include <link.h>
#endif

namespace quorra::guards {

namespace {

namespace fs = std::filesystem;

/// What everybody may read, on the file systems of common distributions. Folders of programs are missing on purpose:
/// the dynamic linker can start any program that it can read.
constexpr std::array readable = {
    "/lib",
    "/lib32",
    "/lib64",
    "/usr/lib",
    "/usr/lib32",
    "/usr/lib64",
    "/usr/libexec",
    "/usr/share", // poppler-data, data of Tesseract, fonts, time zones, translations
    "/usr/local/lib",
    "/usr/local/lib64",
    "/usr/local/share",
    "/etc/ld.so.cache",
    "/etc/ld.so.preload",
    "/etc/locale.alias",
    "/etc/localtime",
    "/etc/nsswitch.conf",
    "/etc/papersize",
    "/etc/timezone",
    "/dev/random",
    "/dev/urandom",
    "/dev/zero",
    "/proc/cpuinfo",
    "/proc/filesystems",
    "/proc/meminfo",
    "/sys/devices/system/cpu",
};

void addPaths(FileRules &rules, Access access, const char *list)
{
    std::istringstream paths(list ? list : "");
    for (std::string path; std::getline(paths, path, ':');) {
        if (!path.empty()) {
            rules.push_back({access, path});
        }
    }
}

void addLibraryFolders(FileRules &rules)
{
    addPaths(rules, Access::Read, std::getenv("LD_LIBRARY_PATH"));
#ifdef __linux__
    const auto add = [](dl_phdr_info *library, std::size_t, void *data) {
        auto &folders = *static_cast<FileRules *>(data);
        const std::string_view path = library->dlpi_name;
        const std::size_t slash = path.rfind('/');
        if (slash != std::string_view::npos && slash > 0) {
            const std::string folder(path.substr(0, slash));
            const auto isKnown = [&folder](const FileRule &rule) { return rule.path == folder; };
            if (std::none_of(folders.begin(), folders.end(), isKnown)) {
                folders.push_back({Access::Read, folder});
            }
        }
        return 0;
    };
    dl_iterate_phdr(add, &rules);
#endif
}

/// Bytes at the start of a program that hold what the kernel looks for.
constexpr std::size_t programStart = 4096;

/// The program after "#!".
std::string interpreterOfScript(const std::string &start)
{
    std::istringstream line(start.substr(2, start.find('\n') - 2));
    std::string program;
    line >> program;
    return program;
}

/// The dynamic linker that the file asks for.
std::string interpreterOfProgram([[maybe_unused]] const std::string &start)
{
#ifdef __linux__
    ElfW(Ehdr) header;
    if (start.size() < sizeof header || start.compare(0, SELFMAG, ELFMAG) != 0) {
        return {};
    }
    std::memcpy(&header, start.data(), sizeof header);
    for (std::size_t i = 0; i < header.e_phnum; ++i) {
        ElfW(Phdr) part;
        const std::size_t at = header.e_phoff + i * sizeof part;
        if (at > start.size() || start.size() - at < sizeof part) {
            return {};
        }
        std::memcpy(&part, start.data() + at, sizeof part);
        if (part.p_type == PT_INTERP && part.p_offset < start.size()) {
            return start.c_str() + part.p_offset;
        }
    }
#endif
    return {};
}

bool startsScript(const std::string &start)
{
    return start.compare(0, 2, "#!") == 0;
}

} // namespace

FileRules systemFiles()
{
    FileRules rules;
    std::transform(readable.begin(), readable.end(), std::back_inserter(rules), [](const char *path) {
        return FileRule{Access::Read, path};
    });
    rules.push_back({Access::ReadWrite, "/dev/null"});
    addLibraryFolders(rules);
    return rules;
}

FileRules linkedFolder(const std::string &path)
{
    std::error_code error;
    FileRules rules;
    if (!fs::is_directory(path, error)) {
        return rules;
    }
    rules.push_back({Access::Read, path});
    for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        if (entry->is_symlink(unknown)) {
            rules.push_back({Access::Read, entry->path().string()});
        }
    }
    return rules;
}

FileRules programFiles(const std::string &path)
{
    FileRules rules = {{Access::Execute, path}};
    std::string start = startOf(path, programStart);
    if (startsScript(start)) {
        const std::string shell = interpreterOfScript(start);
        rules.push_back({Access::Execute, shell});
        addPaths(rules, Access::Execute, std::getenv("PATH"));
        start = startOf(shell, programStart);
    }
    const std::string linker = interpreterOfProgram(start);
    if (!linker.empty()) {
        rules.push_back({Access::Execute, linker});
    }
    return rules;
}

std::string startOf(const std::string &path, std::size_t most)
{
    std::string start;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return start;
    }
    std::array<char, programStart> block;
    // A block that is not full is the last one.
    auto got = static_cast<ssize_t>(block.size());
    while (got == static_cast<ssize_t>(block.size()) && start.size() < most) {
        got = read(file, block.data(), std::min(block.size(), most - start.size()));
        start.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(0, got)));
    }
    close(file);
    return start;
}

bool isScript(const std::string &path)
{
    return startsScript(startOf(path, programStart));
}

} // namespace quorra::guards
