// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/temp_folder.h"

#include "base/failure.h"
#include "platform/part_file.h"
#include "platform/platform.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorra {

namespace {

namespace fs = std::filesystem;

constexpr const char *systemFolder = "/tmp";
constexpr const char *prefix = "qtminw-";
constexpr const char *lockName = "/.lock";

/// LibreOffice reads the output folder from a list separated by these characters, which truncates the path.
constexpr const char *unusable = ";|";

/// The path of the current folder, for the handler of a fatal signal.
std::atomic<const char *> livingFolder{nullptr};

/// Resolves symbolic links: LibreOffice derives the name of its socket from the resolved path.
std::string resolvedPath(const std::string &folder)
{
    std::error_code error;
    const fs::path resolved = fs::canonical(folder, error);
    return error ? folder : resolved.string();
}

/// Returns whether programs of the user's locale take the bytes of names for UTF-8. The C library asks the variables in
/// this order.
bool namesAreUtf8()
{
    for (const char *variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char *const value = std::getenv(variable);
        if (value && *value) {
            return strcasestr(value, "utf-8") || strcasestr(value, "utf8");
        }
    }
    return false;
}

bool isAscii(const std::string &text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// LibreOffice would work in a folder of another name, beside this one.
bool isMisread(const std::string &folder)
{
    return !isAscii(folder) && !namesAreUtf8();
}

/// $TMPDIR, unless it is not an absolute path or LibreOffice cannot use it.
std::string parentFolder()
{
    const char *const given = std::getenv("TMPDIR");
    const std::string folder = resolvedPath(given && *given == '/' ? given : systemFolder);
    const bool good = folder.find_first_of(unusable) == std::string::npos && !isMisread(folder);
    return good ? folder : resolvedPath(systemFolder);
}

bool isOurs(const std::string &path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid();
}

void removeIfUnlocked(const std::string &path)
{
    const int lock = open((path + lockName).c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
    std::error_code ignored;
    // A folder without a lock file was left by a process killed between creating the two.
    if (lock < 0 || flock(lock, LOCK_EX | LOCK_NB) == 0) {
        fs::remove_all(path, ignored);
    }
    if (lock >= 0) {
        close(lock);
    }
}

} // namespace

TempFolder::TempFolder()
{
    sweepTempFolders();
    const std::string pattern = parentFolder() + "/" + prefix + std::to_string(getpid()) + "-XXXXXX";
    std::vector<char> path(pattern.c_str(), pattern.c_str() + pattern.size() + 1);
    if (!mkdtemp(path.data())) {
        throw Failure(
            ExitStatus::CannotWrite, "cannot create a folder in " + parentFolder() + ": " + std::strerror(errno));
    }
    m_path = path.data();
    m_lock = open((m_path + lockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_lock >= 0) {
        flock(m_lock, LOCK_EX | LOCK_NB);
    }
    livingFolder = m_path.c_str();
}

TempFolder::~TempFolder()
{
    livingFolder = nullptr;
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
    if (m_lock >= 0) {
        close(m_lock);
    }
}

std::vector<std::string> abandonedTempFolders()
{
    std::vector<std::string> abandoned;
    std::error_code error;
    for (fs::directory_iterator entry(parentFolder(), error), end; !error && entry != end; entry.increment(error)) {
        const std::string path = entry->path().string();
        if (ownerIsGone(entry->path().filename().string(), prefix) && isOurs(path)) {
            abandoned.push_back(path);
        }
    }
    return abandoned;
}

void removeTempFolderNow()
{
    if (const char *const path = livingFolder) {
        platform::removeFlatFolder(path);
    }
}

void sweepTempFolders()
{
    for (const std::string &path : abandonedTempFolders()) {
        removeIfUnlocked(path);
    }
}

} // namespace quorra
