// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/part_file.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quorra {

namespace {

const std::string partPrefix = ".qtminw-";
const std::string partSuffix = ".part";

// For the handler of a fatal signal: the folder of this process's temporary files, and how many were created. All of
// them are in the output folder.
std::atomic<const std::string *> partFolder{nullptr};
std::atomic<unsigned> partCount{0};

bool endsWith(const std::string &text, const std::string &end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

void removeIfUnlocked(const std::string &path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) {
        return;
    }
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        unlink(path.c_str());
    }
    close(descriptor);
}

} // namespace

std::string newPartPath(const std::string &folder)
{
    static const std::string first = folder;
    partFolder = &first;
    return folder + "/" + partPrefix + std::to_string(getpid()) + "-" + std::to_string(++partCount) + partSuffix;
}

void removePartFilesNow()
{
    constexpr std::size_t longestNumber = 10;
    const std::string *const folder = partFolder;
    std::array<char, PATH_MAX> path{};
    if (!folder || folder->size() + partPrefix.size() + partSuffix.size() + 2 * longestNumber + 3 > path.size()) {
        return;
    }
    char *at = std::copy(folder->begin(), folder->end(), path.begin());
    *at++ = '/';
    at = std::copy(partPrefix.begin(), partPrefix.end(), at);
    at = std::to_chars(at, path.end(), getpid()).ptr;
    *at++ = '-';
    for (unsigned number = 1; number <= partCount; ++number) {
        char *const end = std::copy(partSuffix.begin(), partSuffix.end(), std::to_chars(at, path.end(), number).ptr);
        *end = '\0';
        unlink(path.data());
    }
}

platform::UnnamedFile beginPartFile(const std::string &folder)
{
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string path = newPartPath(folder);
        const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            flock(descriptor, LOCK_EX | LOCK_NB);
            return {descriptor, path};
        }
        if (errno != EEXIST) {
            return {};
        }
    }
    return {};
}

bool ownerIsGone(const std::string &name, const std::string &prefix)
{
    if (name.compare(0, prefix.size(), prefix) != 0) {
        return false;
    }
    pid_t pid = 0;
    const char *const end = name.data() + name.size();
    const auto parsed = std::from_chars(name.data() + prefix.size(), end, pid);
    if (parsed.ec != std::errc() || parsed.ptr == end || *parsed.ptr != '-' || pid <= 0) {
        return false;
    }
    return kill(pid, 0) != 0 && errno == ESRCH;
}

void sweepPartFiles(const std::string &folder)
{
    DIR *const directory = opendir(folder.c_str());
    if (!directory) {
        return;
    }
    while (const dirent *entry = readdir(directory)) {
        const std::string name = entry->d_name;
        if (endsWith(name, partSuffix) && ownerIsGone(name, partPrefix)) {
            removeIfUnlocked(std::string(folder).append("/").append(name));
        }
    }
    closedir(directory);
}

} // namespace quorra
