// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/progress.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <string>

#include <unistd.h>

namespace quorra::progress {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr Clock::duration shortRun = 500ms;        ///< shorter runs show nothing
constexpr Clock::duration betweenChanges = 100ms;  ///< of the line, at least
constexpr std::string_view clearLine = "\r\x1b[K"; ///< ECMA-48: erase in line

std::atomic<int> terminal = -1;
std::atomic<bool> isShown = false;
static_assert(
    std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free, "read in a signal handler");

struct Line
{
    std::mutex mutex;
    std::string step;
    Clock::time_point nextChange;
};

Line &line()
{
    static Line shared;
    return shared;
}

void write(std::string_view text)
{
    [[maybe_unused]] const ssize_t written = ::write(terminal, text.data(), text.size());
}

void replaceLine(Line &shared, std::string_view text)
{
    shared.nextChange = Clock::now() + betweenChanges;
    isShown = true;
    write(std::string(clearLine).append(text));
}

} // namespace

void enable(int descriptor)
{
    const char *kind = std::getenv("TERM");
    if (isatty(descriptor) == 1 && kind != nullptr && *kind != '\0' && std::string_view(kind) != "dumb") {
        line().nextChange = Clock::now() + shortRun;
        terminal = descriptor;
    }
}

void beginStep(std::string_view name)
{
    if (terminal >= 0) {
        const std::lock_guard lock(line().mutex);
        line().step = name;
    }
}

void showPage(int position, int count)
{
    if (terminal < 0) {
        return;
    }
    Line &shared = line();
    const std::lock_guard lock(shared.mutex);
    if (Clock::now() >= shared.nextChange) {
        replaceLine(shared, shared.step + " page " + std::to_string(position) + " of " + std::to_string(count));
    }
}

void show(std::string_view text)
{
    if (terminal >= 0) {
        Line &shared = line();
        const std::lock_guard lock(shared.mutex);
        replaceLine(shared, text);
    }
}

void clear()
{
    if (isShown.exchange(false)) {
        write(clearLine);
    }
}

} // namespace quorra::progress
