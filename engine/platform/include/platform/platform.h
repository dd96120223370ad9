// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

#include <sys/types.h>

/// What differs from system to system. Linux has its own file; every other system takes the portable one.
namespace quorra::platform {

/// A file being written that has no final name yet. `partPath` is its provisional name, empty while it has none.
struct UnnamedFile
{
    int descriptor = -1;
    std::string partPath;
};

/// Begins a file in the folder. -1 as its descriptor and errno tell a failure.
UnnamedFile beginFile(const std::string &folder);

/// Names the file, replacing what stood there, in one step that cannot be seen half done. False and errno on failure.
bool nameFile(UnnamedFile &file, const std::string &path);

/// Puts what a file holds on the disk; true also where the file system cannot do that. False and errno on failure.
bool syncFile(int descriptor);

/// Makes the calling process, just forked, die by SIGKILL with its parent `parent`. Async-signal-safe.
void dieWithParent(pid_t parent);

/// As long as it lives, the end of this process also ends the process group, where dieWithParent() cannot do that. It
/// must go before the group's leader is reaped, whose number may be another's afterwards.
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

/// Sends this process SIGXCPU once the thread that makes this object has used so much more processor time; 0 asks for
/// nothing. The signal carries the number as its value, and SI_TIMER as its code. Where the system cannot, there is
/// none.
class ThreadAlarm
{
public:
    ThreadAlarm(std::chrono::nanoseconds time, int number);
    // NOLINTNEXTLINE(performance-trivially-destructible): where threads have timers it has work to do
    ~ThreadAlarm();
    ThreadAlarm(const ThreadAlarm &) = delete;
    ThreadAlarm &operator=(const ThreadAlarm &) = delete;

private:
    void *m_timer = nullptr;
    bool m_isSet = false;
};

/// Removes a folder that holds nothing but files. Async-signal-safe. Where the system cannot list a folder from
/// there, it stays.
void removeFlatFolder(const char *path);

/// Takes Internet sockets away from this process and all it starts.
void closeNetwork();

} // namespace quorra::platform
