// SPDX-License-Identifier: GPL-3.0-or-later
#include "attempts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <arpa/inet.h>
#include <fcntl.h>
#include <linux/bpf.h>
#include <linux/io_uring.h>
#include <linux/keyctl.h>
#include <linux/perf_event.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace attempts {

namespace {

constexpr bool forAll = true;
constexpr bool forSome = false;
constexpr int neverStarted = 127;

/// 0 if the call succeeded, or else its error.
int errorOf(long result)
{
    return result < 0 ? errno : 0;
}

int readFile(const std::string &path)
{
    return errorOf(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

/// Creates and removes it.
int createFile(const std::string &path)
{
    const int error = errorOf(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    unlink(path.c_str());
    return error;
}

int rename(const std::string &from, const std::string &to)
{
    const int error = errorOf(::rename(from.c_str(), to.c_str()));
    ::rename(to.c_str(), from.c_str());
    return error;
}

/// The exit status of the program, which is 127 if it cannot be executed.
int start(std::vector<std::string> words)
{
    std::vector<char *> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string &word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execv(arguments.front(), arguments.data());
        _exit(neverStarted);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : neverStarted;
}

/// The dynamic linker can be called as a program, too.
std::string dynamicLinker()
{
    const std::array linkers = {"/lib64/ld-linux-x86-64.so.2", "/lib/ld-linux-aarch64.so.1"};
    const auto *const found =
        std::find_if(linkers.begin(), linkers.end(), [](const char *each) { return access(each, X_OK) == 0; });
    return found == linkers.end() ? std::string() : *found;
}

int connectTo(const sockaddr *address, socklen_t size)
{
    const int number = socket(address->sa_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return number < 0 ? errno : errorOf(connect(number, address, size));
}

int connectToPort(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return connectTo(reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

int connectToFile(const std::string &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return connectTo(reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

int readParent()
{
    static char own = 'x';
    char read = 0;
    const iovec to{&read, 1};
    const iovec from{&own, 1}; // the parent is the same program at the same addresses, or there is nothing
    const long got = process_vm_readv(getppid(), &to, 1, &from, 1, 0);
    return got < 0 && errno == EFAULT ? 0 : errorOf(got);
}

int changeParentsLimits()
{
    rlimit limit{};
    return errorOf(prlimit(getppid(), RLIMIT_NOFILE, nullptr, &limit));
}

int setUpRing()
{
    io_uring_params parameters{};
    return errorOf(syscall(SYS_io_uring_setup, 1, &parameters));
}

int countEvents()
{
    perf_event_attr attributes{};
    attributes.type = PERF_TYPE_SOFTWARE;
    attributes.size = sizeof attributes;
    attributes.config = PERF_COUNT_SW_TASK_CLOCK;
    return errorOf(syscall(SYS_perf_event_open, &attributes, 0, -1, -1, 0));
}

int loadFilter()
{
    bpf_attr attributes{};
    attributes.map_type = BPF_MAP_TYPE_ARRAY;
    attributes.key_size = 4;
    attributes.value_size = 4;
    attributes.max_entries = 1;
    return errorOf(syscall(SYS_bpf, BPF_MAP_CREATE, &attributes, sizeof attributes));
}

int cloneInto(unsigned long flags)
{
    const long child = syscall(SYS_clone, flags | SIGCHLD, nullptr, nullptr, nullptr, nullptr);
    if (child == 0) {
        _exit(0);
    }
    return errorOf(child);
}

} // namespace

const std::vector<Attempt> &all()
{
    static const std::vector<Attempt> made = {
        {"read the password file", Files, forAll, [](const Place &) { return readFile("/etc/passwd"); }},
        {"read a file in the home", Files, forAll, [](const Place &place) { return readFile(place.secret); }},
        {"list a folder", Files, forAll, [](const Place &place) { return readFile(place.outside); }},
        {"list the root", Files, forAll, [](const Place &) { return readFile("/"); }},
        {"write to a file in the home", Files, forAll,
         [](const Place &place) { return errorOf(open(place.secret.c_str(), O_WRONLY | O_CLOEXEC)); }},
        {"truncate a file", Files, forAll,
         [](const Place &place) {
             // Version 3 refuses also truncate() itself.
             return errorOf(open(place.secret.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
         }},
        {"write beside the output folder", Files, forAll,
         [](const Place &place) { return createFile(place.outside + "/made"); }},
        {"rename a file", Files, forAll,
         [](const Place &place) { return rename(place.secret, place.secret + ".moved"); }},
        {"show a file to other users", Filter, forAll,
         [](const Place &place) { return errorOf(chmod(place.secret.c_str(), 0600)); }},
        {"show a file to other users, by a later call", Filter, forSome,
         [](const Place &place) {
             constexpr long fchmodat2 = 452;
             return errorOf(syscall(fchmodat2, AT_FDCWD, place.secret.c_str(), 0600, 0));
         }},
        {"make a folder", Files, forAll,
         [](const Place &place) {
             const std::string path = place.outside + "/folder";
             const int error = errorOf(mkdir(path.c_str(), 0700));
             rmdir(path.c_str());
             return error;
         }},
        {"read what other processes were started with", Files, forAll,
         [](const Place &) { return readFile("/proc/" + std::to_string(getppid()) + "/status"); }},
        {"run a shell", Files, forAll,
         [](const Place &) {
             return start({"/bin/sh", "-c", "exit 0"});
         }},
        {"run a shell through the dynamic linker", Files, forAll,
         [](const Place &) {
             return start({dynamicLinker(), "/bin/sh", "-c", "exit 0"});
         }},
        {"create a program without a file", Filter, forAll,
         [](const Place &) { return errorOf(memfd_create("program", MFD_CLOEXEC)); }},
        {"connect to a port", Filter, forAll, [](const Place &place) { return connectToPort(place.port); }},
        {"connect to a local socket", Filter, forAll,
         [](const Place &place) { return connectToFile(place.localSocket); }},
        {"send datagrams", Filter, forAll,
         [](const Place &) { return errorOf(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)); }},
        {"ask the kernel by a socket", Filter, forAll,
         [](const Place &) { return errorOf(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, 0)); }},
        {"trace the parent", Filter, forSome,
         [](const Place &) { return errorOf(ptrace(PTRACE_SEIZE, getppid(), nullptr, nullptr)); }},
        {"read the parent's memory", Filter, forSome, [](const Place &) { return readParent(); }},
        {"see the parent's limits", Filter, forAll, [](const Place &) { return changeParentsLimits(); }},
        {"signal the parent", Scopes, forAll, [](const Place &) { return errorOf(kill(getppid(), SIGURG)); }},
        {"read keys", Filter, forSome,
         [](const Place &) { return errorOf(syscall(SYS_keyctl, KEYCTL_GET_KEYRING_ID, -3, 1)); }},
        {"make a namespace", Filter, forSome, [](const Place &) { return errorOf(unshare(CLONE_NEWUSER)); }},
        {"clone into a namespace", Filter, forSome, [](const Place &) { return cloneInto(CLONE_NEWUSER); }},
        {"clone with flags in memory", Filter, forSome,
         [](const Place &) {
             const long result = syscall(SYS_clone3, nullptr, 0);
             return result < 0 && errno == EINVAL ? 0 : errorOf(result);
         }},
        {"mount", Filter, forSome,
         [](const Place &place) {
             const int error = errorOf(mount("none", place.outside.c_str(), "tmpfs", 0, nullptr));
             umount(place.outside.c_str());
             return error;
         }},
        {"load a module", Filter, forSome,
         [](const Place &) {
             const long result = syscall(SYS_init_module, "", 0, "");
             return result < 0 && errno != EPERM ? 0 : errorOf(result);
         }},
        {"load a filter", Filter, forSome, [](const Place &) { return loadFilter(); }},
        {"count events", Filter, forSome, [](const Place &) { return countEvents(); }},
        {"set up a ring of requests", Filter, forSome, [](const Place &) { return setUpRing(); }},
        {"handle page faults", Filter, forSome,
         [](const Place &) { return errorOf(syscall(SYS_userfaultfd, O_CLOEXEC)); }},
        {"type into a terminal", Filter, forSome,
         [](const Place &) {
             const long result = ioctl(STDIN_FILENO, TIOCSTI, "x");
             return result < 0 && errno != EPERM ? 0 : errorOf(result);
         }},
    };
    return made;
}

int resultOf(const Attempt &attempt, const Place &place, const std::function<void()> &before)
{
    const pid_t child = fork();
    if (child == 0) {
        before();
        _exit(attempt.run(place));
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace attempts
