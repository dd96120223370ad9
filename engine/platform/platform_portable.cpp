// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/platform/part_file.h"
#include "engine/platform/platform.h"

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace quorra::platform {

UnnamedFile beginFile(const std::string &folder)
{
    return beginPartFile(folder);
}

bool nameFile(UnnamedFile &file, const std::string &path)
{
    if (rename(file.partPath.c_str(), path.c_str()) != 0)
        return false;
    file.partPath.clear();
    return true;
}

void dieWithParent(pid_t) {}

void guardGroup(pid_t group)
{
    // A small process waits on a pipe that only this process holds open: its end is this process's end.
    int ends[2];
    if (pipe(ends) != 0)
        return;
    const pid_t watcher = fork();
    if (watcher == 0) {
        close(ends[1]);
        setpgid(0, 0);
        char byte = 0;
        while (read(ends[0], &byte, 1) > 0)
            continue;
        kill(-group, SIGKILL);
        _exit(0);
    }
    // The writing end stays open on purpose until this process ends.
    close(ends[0]);
}

void closeNetwork() {}

} // namespace quorra::platform
