// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/memory_left.h"

#include "platform/limits.h"

#include <algorithm>
#include <fstream>

#include <sys/resource.h>
#include <unistd.h>

namespace quorra {

namespace {

/// Address space used by the process, in bytes. Only known on Linux; otherwise 0.
struct Taken
{
    std::uint64_t addresses = 0;
    std::uint64_t resident = 0;
};

Taken taken()
{
    std::ifstream file("/proc/self/statm");
    std::uint64_t addresses = 0;
    std::uint64_t resident = 0;
    if (!(file >> addresses >> resident)) {
        return {};
    }
    const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    return {addresses * page, resident * page};
}

} // namespace

std::uint64_t memoryLeft()
{
    rlimit limit{};
    const bool limited = getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    // Without a limit on address space, reserving it costs nothing.
    const std::uint64_t used = limited ? taken().addresses : taken().resident;
    const std::uint64_t most = limited ? std::uint64_t{limit.rlim_cur} : limits::addressSpaceBytes;
    return most > used ? most - used : 0;
}

} // namespace quorra
