// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/limits.h"

#include "base/failure.h"
#include "platform/part_file.h"
#include "platform/platform.h"
#include "platform/progress.h"
#include "platform/temp_folder.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <ctime>
#include <new>
#include <string_view>

#include <sys/resource.h>
#include <unistd.h>

namespace quorra::limits {

namespace {

constexpr unsigned cpuGraceSeconds = 10;
constexpr std::size_t signalStackBytes = 64 * 1024;

int lineDescriptor = STDERR_FILENO;
std::atomic<std::chrono::milliseconds> allowed{std::chrono::milliseconds{0}};

template <typename Resource>
void setSoftLimit(Resource resource, rlim_t soft, rlim_t hardAbove)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) {
        return;
    }
    limit.rlim_cur = limit.rlim_max == RLIM_INFINITY || limit.rlim_max > soft ? soft : limit.rlim_max;
    // Helper processes may need more than this process: the hard limit is unchanged by default.
    if (hardAbove > 0 && (limit.rlim_max == RLIM_INFINITY || limit.rlim_max > soft + hardAbove)) {
        limit.rlim_max = soft + hardAbove;
    }
    setrlimit(resource, &limit);
}

struct SignalLine
{
    int signal;
    ExitStatus status;
    std::string_view line;
};

constexpr std::string_view damagedLine = "Qtminw: the file is too damaged for the PDF library\n";

constexpr SignalLine noMemory = {SIGABRT, ExitStatus::Limit, "Qtminw: the file needs more memory than allowed\n"};

constexpr std::array<SignalLine, 6> signalLines = {{
    {SIGABRT, ExitStatus::CannotOpen, "Qtminw: the PDF library could not process the file, which may be damaged\n"},
    {SIGXCPU, ExitStatus::Limit, "Qtminw: the file needs more processor time than allowed\n"},
    {SIGSEGV, ExitStatus::CannotOpen, damagedLine},
    {SIGBUS, ExitStatus::CannotOpen, damagedLine},
    {SIGFPE, ExitStatus::CannotOpen, damagedLine},
    {SIGILL, ExitStatus::CannotOpen, damagedLine},
}};

std::atomic<bool> newFailed = false;
static_assert(std::atomic<bool>::is_always_lock_free, "read in a signal handler");

/// Called by operator new when an allocation fails.
void noteFailedNew()
{
    newFailed = true;
    throw std::bad_alloc();
}

// Everything from here to leave() is async-signal-safe.

/// Removes incomplete files, writes one line and exits.
[[noreturn]] void leaveWith(ExitStatus status, std::string_view line)
{
    removePartFilesNow();
    removeTempFolderNow();
    progress::clear();
    [[maybe_unused]] const ssize_t written = write(lineDescriptor, line.data(), line.size());
    _exit(static_cast<int>(status));
}

[[noreturn]] void leaveWithSlowPage(int page)
{
    std::array<char, 128> line{};
    constexpr std::string_view lineStart = "Qtminw: page ";
    constexpr std::string_view lineEnd = " needs more processor time than allowed\n";
    char *at = std::copy(lineStart.begin(), lineStart.end(), line.data());
    at = std::to_chars(at, line.data() + line.size(), page).ptr;
    at = std::copy(lineEnd.begin(), lineEnd.end(), at);
    leaveWith(ExitStatus::Limit, {line.data(), static_cast<std::size_t>(at - line.data())});
}

void leave(int signal, siginfo_t *info, void * /*context*/)
{
    const int error = errno;
    static std::atomic_flag isLeaving = ATOMIC_FLAG_INIT;
    while (isLeaving.test_and_set()) {
        pause(); // another thread is exiting already
    }
    if (signal == SIGXCPU && info->si_code == SI_TIMER) {
        leaveWithSlowPage(info->si_value.sival_int);
    }
    // The library aborts if malloc() fails, which sets errno, but also if it encounters something it cannot handle.
    if (signal == SIGABRT && (error == ENOMEM || newFailed)) {
        leaveWith(noMemory.status, noMemory.line);
    }
    for (const SignalLine &each : signalLines) {
        if (each.signal == signal) {
            leaveWith(each.status, each.line);
        }
    }
    _exit(static_cast<int>(ExitStatus::CannotOpen));
}

} // namespace

void apply()
{
#ifndef QUORRA_SANITIZED
    // The sanitizers reserve terabytes of address space.
    setSoftLimit(RLIMIT_AS, addressSpaceBytes, 0);
#endif
    setSoftLimit(RLIMIT_CPU, openingSeconds, cpuSecondsWithScans - openingSeconds + cpuGraceSeconds);
    setSoftLimit(RLIMIT_FSIZE, outputBytes, 0);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    // A write beyond the limit then fails like any other write.
    signal(SIGXFSZ, SIG_IGN);
    platform::closeNetwork();
}

void allowProcessorTime(std::chrono::milliseconds time)
{
    allowed = time;
    const std::chrono::seconds seconds = std::chrono::ceil<std::chrono::seconds>(time);
    setSoftLimit(RLIMIT_CPU, static_cast<rlim_t>(std::max<std::int64_t>(1, seconds.count())), 0);
}

std::chrono::milliseconds processorTimeLeft()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    const auto taken = std::chrono::seconds{time.tv_sec} + std::chrono::milliseconds{time.tv_nsec / 1'000'000};
    return std::max(std::chrono::milliseconds{0}, allowed.load() - taken);
}

void catchFatalSignals(int errorDescriptor)
{
    lineDescriptor = errorDescriptor;
    std::set_new_handler(noteFailedNew);
    prepareThread();
    struct sigaction action
    {
    };
    action.sa_sigaction = leave;
    action.sa_flags = SA_ONSTACK | SA_SIGINFO;
    sigfillset(&action.sa_mask); // a second fault in the handler terminates the process
    for (const SignalLine &each : signalLines) {
#ifdef QUORRA_SANITIZED
        // The sanitizers report these themselves.
        if (each.signal != SIGXCPU) {
            continue;
        }
#endif
        sigaction(each.signal, &action, nullptr);
    }
}

void prepareThread()
{
#ifndef QUORRA_SANITIZED
    thread_local std::array<char, signalStackBytes> memory;
    stack_t stack{};
    stack.ss_sp = memory.data();
    stack.ss_size = memory.size();
    sigaltstack(&stack, nullptr);
#endif
}

} // namespace quorra::limits
