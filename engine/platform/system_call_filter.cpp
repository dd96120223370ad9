// SPDX-License-Identifier: GPL-3.0-or-later
#include "system_call_filter.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <initializer_list>

#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace quorra::guards {

namespace {

// Later than the oldest supported library; the numbers are those of all machines.
constexpr int fchmodat2 = 452;
constexpr int setxattrat = 463;
constexpr int removexattrat = 466;

/// Refused whatever their arguments are.
constexpr std::array refused = {
    // Other processes.
    SCMP_SYS(ptrace), SCMP_SYS(process_vm_readv), SCMP_SYS(process_vm_writev), SCMP_SYS(process_madvise),
    SCMP_SYS(pidfd_getfd), SCMP_SYS(kcmp),
    // Programs that have no file, which file rules cannot refuse.
    SCMP_SYS(memfd_create), SCMP_SYS(memfd_secret), SCMP_SYS(execveat),
    // Rights and attributes of files, which file rules do not cover.
    SCMP_SYS(chmod), SCMP_SYS(fchmod), SCMP_SYS(fchmodat), SCMP_SYS(chown), SCMP_SYS(fchown), SCMP_SYS(lchown),
    SCMP_SYS(fchownat), SCMP_SYS(setxattr), SCMP_SYS(lsetxattr), SCMP_SYS(fsetxattr), SCMP_SYS(removexattr),
    SCMP_SYS(lremovexattr), SCMP_SYS(fremovexattr), fchmodat2, setxattrat, removexattrat,
    // Servers. Nothing that the engine starts is a client, not even of local sockets such as the session's bus.
    SCMP_SYS(connect),
    // Keys of the kernel.
    SCMP_SYS(keyctl), SCMP_SYS(add_key), SCMP_SYS(request_key),
    // Namespaces and mounts.
    SCMP_SYS(unshare), SCMP_SYS(setns), SCMP_SYS(mount), SCMP_SYS(umount2), SCMP_SYS(pivot_root), SCMP_SYS(chroot),
    SCMP_SYS(move_mount), SCMP_SYS(open_tree), SCMP_SYS(fsopen), SCMP_SYS(fsconfig), SCMP_SYS(fsmount),
    SCMP_SYS(fspick), SCMP_SYS(mount_setattr),
    // Large parts of the kernel that have had many errors.
    SCMP_SYS(bpf), SCMP_SYS(perf_event_open), SCMP_SYS(io_uring_setup), SCMP_SYS(io_uring_enter),
    SCMP_SYS(io_uring_register), SCMP_SYS(userfaultfd), SCMP_SYS(fanotify_init),
    // The machine: what root could do.
    SCMP_SYS(init_module), SCMP_SYS(finit_module), SCMP_SYS(delete_module), SCMP_SYS(kexec_load),
    SCMP_SYS(kexec_file_load), SCMP_SYS(open_by_handle_at), SCMP_SYS(reboot), SCMP_SYS(swapon), SCMP_SYS(swapoff),
    SCMP_SYS(acct), SCMP_SYS(quotactl), SCMP_SYS(syslog), SCMP_SYS(sethostname), SCMP_SYS(setdomainname),
    SCMP_SYS(settimeofday), SCMP_SYS(clock_settime), SCMP_SYS(iopl), SCMP_SYS(ioperm)};

constexpr std::array<std::uint64_t, 7> namespaceFlags = {CLONE_NEWNS,   CLONE_NEWCGROUP, CLONE_NEWUTS, CLONE_NEWIPC,
                                                         CLONE_NEWUSER, CLONE_NEWPID,    CLONE_NEWNET};

#ifdef __s390__
constexpr unsigned cloneFlagsArgument = 1;
#else
constexpr unsigned cloneFlagsArgument = 0;
#endif

// The kernel ignores the upper half of these arguments, which are of the type int.
constexpr std::uint64_t lowerHalf = 0xffffffff;

/// A filter under construction. A system call that the machine does not have is left out.
class Filter
{
public:
    Filter() : m_context(seccomp_init(SCMP_ACT_ALLOW)) {}
    ~Filter() { seccomp_release(m_context); }
    Filter(const Filter &) = delete;
    Filter &operator=(const Filter &) = delete;

    void refuse(int call, std::initializer_list<scmp_arg_cmp> conditions = {}, int error = EPERM)
    {
        const int result = m_context ? seccomp_rule_add_array(
                                           m_context, SCMP_ACT_ERRNO(static_cast<std::uint16_t>(error)), call,
                                           static_cast<unsigned>(conditions.size()), conditions.begin())
                                     : -ENOMEM;
        m_good = m_good && (result == 0 || result == -EDOM || call < 0);
    }

    /// Makes the kernel use it from now on, for this process and its child processes.
    bool load() { return m_good && seccomp_load(m_context) == 0; }

private:
    scmp_filter_ctx m_context;
    bool m_good = true;
};

scmp_arg_cmp bits(unsigned argument, std::uint64_t mask, std::uint64_t value)
{
    return {argument, SCMP_CMP_MASKED_EQ, mask, value};
}

scmp_arg_cmp differs(unsigned argument, std::uint64_t value)
{
    return {argument, SCMP_CMP_NE, value, 0};
}

void refuseNamespaces(Filter &filter)
{
    for (const std::uint64_t flag : namespaceFlags) {
        filter.refuse(SCMP_SYS(clone), {bits(cloneFlagsArgument, flag, flag)});
    }
    // Its flags are in memory, where a filter cannot read them. The C library then uses clone().
    filter.refuse(SCMP_SYS(clone3), {}, ENOSYS);
}

/// LibreOffice listens at a local socket of its own, for a second start with the same profile.
void refuseSockets(Filter &filter, Programs programs)
{
    if (programs == Programs::None) {
        filter.refuse(SCMP_SYS(socket));
        return;
    }
    constexpr std::uint64_t typeMask = 0xf;
    filter.refuse(SCMP_SYS(socket), {differs(0, AF_UNIX)});
    for (const int type : {SOCK_DGRAM, SOCK_RAW, SOCK_RDM, SOCK_SEQPACKET}) {
        filter.refuse(SCMP_SYS(socket), {bits(1, typeMask, static_cast<std::uint64_t>(type))});
    }
}

} // namespace

bool filterSystemCalls(Programs programs)
{
    Filter filter;
    for (const int call : refused) {
        filter.refuse(call);
    }
    if (programs == Programs::None) {
        filter.refuse(SCMP_SYS(execve));
    }
    refuseNamespaces(filter);
    refuseSockets(filter, programs);
    // Typing into the terminal that the process was started from.
    for (const std::uint64_t request : {std::uint64_t{TIOCSTI}, std::uint64_t{TIOCLINUX}}) {
        filter.refuse(SCMP_SYS(ioctl), {bits(1, lowerHalf, request)});
    }
    // Limits of other processes.
    filter.refuse(SCMP_SYS(prlimit64), {differs(0, 0)});
    return filter.load();
}

} // namespace quorra::guards
