// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

namespace quorra {

/// Gives the next position from 1 on to whichever thread asks; 0 when there is none left.
using PageSource = std::function<int()>;

/// Memory in bytes, beyond the opened file, that work on pages needs at most.
struct PoolMemory
{
    std::uint64_t perThread = 0;
    std::uint64_t shared = 0; ///< by all threads together, however many they are
};

/// How many threads so many pages (or pictures) get on a machine with `processors` processors, while the process may
/// still take `bytesLeft` bytes of addresses. At least one.
int threadsFor(int pageCount, int processors, std::uint64_t bytesLeft, const PoolMemory &memory);

/// threadsFor() on this machine, in this process. Each thread needs an opened file of its own.
int poolSize(int pageCount, const PoolMemory &memory = {});

/// Makes poolSize() reckon with so many processors instead of the machine's; 0 for the machine's again. For tests.
void assumeProcessors(int count);

/// Gives 1 to `pageCount`; any number of threads may ask it.
PageSource pagesOneByOne(int pageCount);

/// Runs `work` in so many threads, the calling one among them, which share the pages. When the system starts fewer
/// threads, these do all of the work. The first failure stops the giving of pages and is thrown here when all have
/// ended.
void runPool(int threads, int pageCount, const std::function<void(const PageSource &)> &work);

/// Does the work for each page, numbered from 0, several pages at a time where there are many. The first failure is
/// thrown here when all threads have ended.
void forEachPage(int pageCount, const std::function<void(int)> &work);

} // namespace quorra
