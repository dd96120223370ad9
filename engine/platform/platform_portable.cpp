// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/part_file.h"
#include "platform/platform.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorra::platform {

UnnamedFile beginFile(const std::string &folder)
{
    return beginPartFile(folder);
}

bool nameFile(UnnamedFile &file, const std::string &path)
{
    if (rename(file.partPath.c_str(), path.c_str()) != 0) {
        return false;
    }
    file.partPath.clear();
    return true;
}

bool syncFile(int descriptor)
{
#ifdef F_FULLFSYNC
    // There, fsync() may leave the contents in the cache of the disk.
    if (fcntl(descriptor, F_FULLFSYNC) == 0) {
        return true;
    }
#endif
    return fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

void dieWithParent(pid_t) {}

namespace {

/// The watcher: waits until the pipe is closed, which happens when its parent dies.
[[noreturn]] void watch(int pipeEnd, pid_t group)
{
    setpgid(0, 0);
    char byte = 0;
    ssize_t got = 0;
    while ((got = read(pipeEnd, &byte, 1)) < 0 && errno == EINTR) {
        // interrupted by a signal: try again
    }
    if (got == 0) {
        kill(-group, SIGKILL);
    }
    _exit(0);
}

} // namespace

GroupGuard::GroupGuard(pid_t group)
{
    // Only this process may keep the write end open.
    int ends[2];
    if (pipe(ends) != 0) {
        return;
    }
    fcntl(ends[1], F_SETFD, FD_CLOEXEC);
    m_watcher = fork();
    if (m_watcher == 0) {
        close(ends[1]);
        watch(ends[0], group);
    }
    close(ends[0]);
    m_pipe = ends[1];
}

GroupGuard::~GroupGuard()
{
    if (m_watcher > 0) {
        kill(m_watcher, SIGKILL);
        while (waitpid(m_watcher, nullptr, 0) < 0 && errno == EINTR) {
            // interrupted by a signal: try again
        }
    }
    if (m_pipe >= 0) {
        close(m_pipe);
    }
}

ThreadAlarm::ThreadAlarm(std::chrono::nanoseconds, int) {}

ThreadAlarm::~ThreadAlarm() = default;

void removeFlatFolder(const char *) {}

void closeNetwork() {}

} // namespace quorra::platform
