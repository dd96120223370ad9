// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/platform/limits.h"

#include "engine/cli/failure.h"
#include "engine/platform/platform.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>
#include <string_view>

#include <sys/resource.h>
#include <unistd.h>

namespace quorra::limits {

namespace {

constexpr unsigned CpuGraceSeconds = 10;
constexpr std::size_t SignalStackBytes = 64 * 1024;

int lineDescriptor = STDERR_FILENO;

template <typename Resource>
void setSoftLimit(Resource resource, rlim_t soft, rlim_t hardAbove)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0)
        return;
    limit.rlim_cur = limit.rlim_max == RLIM_INFINITY || limit.rlim_max > soft ? soft : limit.rlim_max;
    // Helpers may need more than this process: the hard limit stays where the system put it, unless told otherwise.
    if (hardAbove > 0 && (limit.rlim_max == RLIM_INFINITY || limit.rlim_max > soft + hardAbove))
        limit.rlim_max = soft + hardAbove;
    setrlimit(resource, &limit);
}

struct SignalLine
{
    int signal;
    ExitStatus status;
    std::string_view line;
};

constexpr std::string_view DamagedLine = "Qtminw: the file is damaged in a way that the PDF library cannot survive\n";

constexpr SignalLine NoMemory = {SIGABRT, ExitStatus::Limit, "Qtminw: the file needs more memory than allowed\n"};

constexpr std::array<SignalLine, 6> SignalLines = {{
    {SIGABRT, ExitStatus::CannotOpen, "Qtminw: the PDF library gave up on the file, which may be damaged\n"},
    {SIGXCPU, ExitStatus::Limit, "Qtminw: the file needs more processor time than allowed\n"},
    {SIGSEGV, ExitStatus::CannotOpen, DamagedLine},
    {SIGBUS, ExitStatus::CannotOpen, DamagedLine},
    {SIGFPE, ExitStatus::CannotOpen, DamagedLine},
    {SIGILL, ExitStatus::CannotOpen, DamagedLine},
}};

std::atomic<bool> newFailed = false;
static_assert(std::atomic<bool>::is_always_lock_free, "read in a signal handler");

/// Called by operator new when there is no memory.
void noteFailedNew()
{
    newFailed = true;
    throw std::bad_alloc();
}

/// Async-signal-safe: writes and leaves.
[[noreturn]] void leaveWith(const SignalLine &end)
{
    [[maybe_unused]] const ssize_t written = write(lineDescriptor, end.line.data(), end.line.size());
    _exit(static_cast<int>(end.status));
}

/// Async-signal-safe too.
void leave(int signal)
{
    // The library aborts when malloc() fails, which sets errno, but also when it meets what it cannot handle.
    if (signal == SIGABRT && (errno == ENOMEM || newFailed))
        leaveWith(NoMemory);
    for (const SignalLine &each : SignalLines)
        if (each.signal == signal)
            leaveWith(each);
    _exit(static_cast<int>(ExitStatus::CannotOpen));
}

} // namespace

void apply()
{
#ifndef QUORRA_SANITIZED
    // The sanitizers reserve terabytes of addresses.
    setSoftLimit(RLIMIT_AS, AddressSpaceBytes, 0);
#endif
    setSoftLimit(RLIMIT_CPU, CpuSeconds, CpuGraceSeconds);
    setSoftLimit(RLIMIT_FSIZE, OutputBytes, 0);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    // A write past the limit then fails like any other write.
    signal(SIGXFSZ, SIG_IGN);
    platform::closeNetwork();
}

void catchFatalSignals(int errorDescriptor)
{
    lineDescriptor = errorDescriptor;
    std::set_new_handler(noteFailedNew);
    prepareThread();
    struct sigaction action
    {
    };
    action.sa_handler = leave;
    action.sa_flags = SA_ONSTACK;
    for (const SignalLine &each : SignalLines) {
#ifdef QUORRA_SANITIZED
        // The sanitizers report these themselves.
        if (each.signal != SIGXCPU)
            continue;
#endif
        sigaction(each.signal, &action, nullptr);
    }
}

void prepareThread()
{
#ifndef QUORRA_SANITIZED
    thread_local std::array<char, SignalStackBytes> memory;
    stack_t stack{};
    stack.ss_sp = memory.data();
    stack.ss_size = memory.size();
    sigaltstack(&stack, nullptr);
#endif
}

} // namespace quorra::limits
