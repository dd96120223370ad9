// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

#include <sys/types.h>

/// Functions that depend on the operating system. platform_linux.cpp implements them for Linux, platform_portable.cpp
/// for all other systems.
namespace quorra::platform {

/// A file being written that does not have its final name yet. `partPath` is its temporary name, or empty.
struct UnnamedFile
{
    int descriptor = -1;
    std::string partPath;
};

/// Creates a file in the folder. On failure, the descriptor is -1 and errno is set.
UnnamedFile beginFile(const std::string &folder);

/// Atomically gives the file its name, replacing an existing file. On failure, returns false and sets errno.
bool nameFile(UnnamedFile &file, const std::string &path);

/// Syncs the contents of a file to disk. Also returns true if the file system does not support this. On failure,
/// returns false and sets errno.
bool syncFile(int descriptor);

/// Makes the calling process, which was just forked, receive SIGKILL when its parent `parent` dies. Async-signal-safe.
void dieWithParent(pid_t parent);

/// While the object exists, the process group is killed when this process dies, on systems where dieWithParent() has no
/// effect. Destroy it before the group's leader is reaped, because its ID may be reused afterwards.
class GroupGuard
{
public:
    explicit GroupGuard(pid_t group);
    // Trivial on some systems only. NOLINTNEXTLINE(performance-trivially-destructible)
    ~GroupGuard();
    GroupGuard(const GroupGuard &) = delete;
    GroupGuard &operator=(const GroupGuard &) = delete;

private:
    [[maybe_unused]] pid_t m_watcher = -1;
    [[maybe_unused]] int m_pipe = -1;
};

/// Sends SIGXCPU to this process when the thread that creates the object has used the given amount of additional
/// processor time; 0 disables the alarm. The signal has the number as its value and SI_TIMER as its code. Does nothing
/// on systems without timers for threads.
class ThreadAlarm
{
public:
    ThreadAlarm(std::chrono::nanoseconds time, int number);
    // NOLINTNEXTLINE(performance-trivially-destructible): not trivial on systems with timers for threads
    ~ThreadAlarm();
    ThreadAlarm(const ThreadAlarm &) = delete;
    ThreadAlarm &operator=(const ThreadAlarm &) = delete;

private:
    void *m_timer = nullptr;
    bool m_isSet = false;
};

/// Removes a folder that contains only files. Async-signal-safe. Does nothing on systems that cannot list a folder in a
/// signal handler.
void removeFlatFolder(const char *path);

/// Blocks Internet sockets for this process and its child processes.
void closeNetwork();

} // namespace quorra::platform
