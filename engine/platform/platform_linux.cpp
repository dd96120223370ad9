// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/platform/part_file.h"
#include "engine/platform/platform.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <seccomp.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quorra::platform {

namespace {

bool linkTo(int descriptor, const std::string &path)
{
    const std::string source = "/proc/self/fd/" + std::to_string(descriptor);
    return linkat(AT_FDCWD, source.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

} // namespace

UnnamedFile beginFile(const std::string &folder)
{
    const int descriptor = open(folder.c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, 0666);
    if (descriptor >= 0) {
        // Locked already now, since it may get a provisional name later.
        flock(descriptor, LOCK_EX | LOCK_NB);
        return {descriptor, {}};
    }
    // Some file systems know no unnamed files.
    return errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL ? beginPartFile(folder) : UnnamedFile{};
}

bool nameFile(UnnamedFile &file, const std::string &path)
{
    if (file.partPath.empty()) {
        if (linkTo(file.descriptor, path))
            return true;
        if (errno != EEXIST)
            return false;
        // A link cannot replace a file; a rename can, and needs a name to start from.
        const std::string partPath = newPartPath(path.substr(0, path.rfind('/')));
        if (!linkTo(file.descriptor, partPath))
            return false;
        file.partPath = partPath;
    }
    if (rename(file.partPath.c_str(), path.c_str()) != 0)
        return false;
    file.partPath.clear();
    return true;
}

bool syncFile(int descriptor)
{
    return fdatasync(descriptor) == 0 || errno == EINVAL || errno == EROFS;
}

void dieWithParent(pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(127);
}

GroupGuard::GroupGuard(pid_t) {}

GroupGuard::~GroupGuard() = default;

void closeNetwork()
{
    const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
    if (!filter)
        return;
    for (const int family : {AF_INET, AF_INET6})
        seccomp_rule_add(
            filter, SCMP_ACT_ERRNO(EACCES), SCMP_SYS(socket), 1,
            SCMP_A0(SCMP_CMP_EQ, static_cast<scmp_datum_t>(family)));
    seccomp_load(filter);
    seccomp_release(filter);
}

} // namespace quorra::platform
