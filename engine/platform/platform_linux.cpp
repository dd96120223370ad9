// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/part_file.h"
#include "platform/platform.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>

#include <dirent.h>
#include <fcntl.h>
#include <seccomp.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
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
        // Locked now, because it may get a temporary name later.
        flock(descriptor, LOCK_EX | LOCK_NB);
        return {descriptor, {}};
    }
    // Some file systems do not support unnamed files.
    return errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL ? beginPartFile(folder) : UnnamedFile{};
}

bool nameFile(UnnamedFile &file, const std::string &path)
{
    if (file.partPath.empty()) {
        if (linkTo(file.descriptor, path)) {
            return true;
        }
        if (errno != EEXIST) {
            return false;
        }
        // A link cannot replace a file. A rename can, but requires an old name.
        const std::string partPath = newPartPath(path.substr(0, path.rfind('/')));
        if (!linkTo(file.descriptor, partPath)) {
            return false;
        }
        file.partPath = partPath;
    }
    if (rename(file.partPath.c_str(), path.c_str()) != 0) {
        return false;
    }
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
    if (getppid() != parent) {
        _exit(127);
    }
}

GroupGuard::GroupGuard(pid_t) {}

GroupGuard::~GroupGuard() = default;

ThreadAlarm::ThreadAlarm(std::chrono::nanoseconds time, int number)
{
    if (time.count() <= 0) {
        return;
    }
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGXCPU;
    event.sigev_value.sival_int = number;
    if (timer_create(CLOCK_THREAD_CPUTIME_ID, &event, &m_timer) != 0) {
        return;
    }
    m_isSet = true;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    itimerspec once{};
    once.it_value.tv_sec = seconds.count();
    once.it_value.tv_nsec = (time - seconds).count();
    timer_settime(m_timer, 0, &once, nullptr);
}

ThreadAlarm::~ThreadAlarm()
{
    if (m_isSet) {
        timer_delete(m_timer);
    }
}

void removeFlatFolder(const char *path)
{
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) {
        return;
    }
    // readdir() may allocate memory, which a signal handler must not do.
    alignas(dirent64) char entries[4096];
    long size = 0;
    while ((size = syscall(SYS_getdents64, folder, entries, sizeof entries)) > 0) {
        for (long at = 0; at < size;) {
            const auto *const entry = reinterpret_cast<const dirent64 *>(entries + at);
            unlinkat(folder, entry->d_name, 0);
            at += entry->d_reclen;
        }
    }
    close(folder);
    rmdir(path);
}

void closeNetwork()
{
    const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
    if (!filter) {
        return;
    }
    for (const int family : {AF_INET, AF_INET6}) {
        seccomp_rule_add(
            filter, SCMP_ACT_ERRNO(EACCES), SCMP_SYS(socket), 1,
            SCMP_A0(SCMP_CMP_EQ, static_cast<scmp_datum_t>(family)));
    }
    seccomp_load(filter);
    seccomp_release(filter);
}

} // namespace quorra::platform
