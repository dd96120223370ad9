// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/child_process.h"

#include "platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace quorra {

namespace {

constexpr std::chrono::milliseconds pause{5};
constexpr int notStartedStatus = 127;

/// The inherited environment, with the entries of the command added or replaced.
std::vector<std::string> mergedEnvironment(const std::vector<std::string> &own)
{
    std::vector<std::string> merged = own;
    for (char **entry = environ; *entry; ++entry) {
        const std::string inherited = *entry;
        const std::string name = inherited.substr(0, inherited.find('=') + 1);
        const bool replaced = std::any_of(
            own.begin(), own.end(), [&](const std::string &each) { return each.compare(0, name.size(), name) == 0; });
        if (!replaced) {
            merged.push_back(inherited);
        }
    }
    return merged;
}

std::vector<char *> pointers(std::vector<std::string> &texts)
{
    std::vector<char *> result;
    result.reserve(texts.size() + 1);
    for (std::string &text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

// Only async-signal-safe calls until exec: the process may have other threads.

template <typename Resource>
void limit(Resource resource, rlim_t value)
{
    const rlimit both{value, value};
    setrlimit(resource, &both);
}

[[noreturn]] void becomeCommand(
    const ChildCommand &command, const guards::PreparedRules &files, char **arguments, char **environment, pid_t parent)
{
    setpgid(0, 0);
    platform::dieWithParent(parent);
    if (command.addressSpaceBytes > 0) {
        limit(RLIMIT_AS, command.addressSpaceBytes);
    }
    if (command.cpuSeconds > 0) {
        limit(RLIMIT_CPU, command.cpuSeconds);
    }
    // Other users must not be able to write to what it creates, such as sockets. They can read it: what it creates as
    // root in shared folders, such as font caches, is used by everybody, and private files are in a private folder.
    umask(umask(0) | S_IWGRP | S_IWOTH);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGXCPU, SIGXFSZ, SIGPIPE}) {
        signal(number, SIG_DFL);
    }
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, stream);
    }
    if (nowhere > STDERR_FILENO) {
        close(nowhere);
    }
    if (command.workingFolder.empty() || chdir(command.workingFolder.c_str()) == 0) {
        files.enter();
        execve(command.program.c_str(), arguments, environment);
    }
    _exit(notStartedStatus);
}

/// Waits until the process exits, without reaping it; returns false if it has not exited before the deadline.
bool endsUntil(pid_t child, std::chrono::steady_clock::time_point deadline)
{
    for (;;) {
        siginfo_t info{};
        const int failed = waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT);
        if (failed ? errno != EINTR : info.si_pid == child) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(pause);
    }
}

/// Waits for the process and reaps it.
int reap(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        // interrupted by a signal: try again
    }
    return status;
}

} // namespace

ChildResult runChild(const ChildCommand &command)
{
    std::vector<std::string> argumentTexts = {command.program};
    argumentTexts.insert(argumentTexts.end(), command.arguments.begin(), command.arguments.end());
    std::vector<std::string> environmentTexts = mergedEnvironment(command.environment);
    const std::vector<char *> arguments = pointers(argumentTexts);
    const std::vector<char *> environment = pointers(environmentTexts);

    const guards::PreparedRules files(command.files);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0) {
        return {};
    }
    if (child == 0) {
        becomeCommand(
            command, files, const_cast<char **>(arguments.data()), const_cast<char **>(environment.data()), parent);
    }
    setpgid(child, child);
    bool inTime = false;
    {
        const platform::GroupGuard guard(child);
        inTime = endsUntil(child, std::chrono::steady_clock::now() + command.wallLimit);
        // Also after a normal exit: no process started by the command may remain. The group's ID cannot be reused until
        // the leader has been reaped.
        kill(-child, SIGKILL);
    }
    const int status = reap(child);
    if (!inTime) {
        return {ChildEnd::TimedOut, 0};
    }
    if (WIFSIGNALED(status)) {
        return {ChildEnd::Signalled, WTERMSIG(status)};
    }
    if (WEXITSTATUS(status) == notStartedStatus) {
        return {};
    }
    return {ChildEnd::Exited, WEXITSTATUS(status)};
}

} // namespace quorra
