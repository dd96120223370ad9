// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// Makes the calling process, just forked, die by SIGKILL with its parent `parent`. Async-signal-safe.
void dieWithParent(pid_t parent);

/// Watches over a process group from the parent's side where dieWithParent() cannot do it.
void guardGroup(pid_t group);

/// Takes Internet sockets away from this process and all it starts.
void closeNetwork();

} // namespace quorra::platform
