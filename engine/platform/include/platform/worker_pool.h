// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

namespace quorra {

/// Returns the next position, starting from 1; 0 when there is none left. Can be called by any thread.
using PageSource = std::function<int()>;

/// The number of pages, by default, that make one more thread worth its start.
inline constexpr int pagesPerThread = 4;

/// Peak memory in bytes for work on pages, in addition to the opened file.
struct PoolMemory
{
    std::uint64_t perThread = 0;
    std::uint64_t shared = 0; ///< by all threads together
};

/// Returns how many threads to use for a number of pages (or pictures) on a machine with `processors` processors, if
/// the process can still allocate `bytesLeft` bytes of address space. `pagesEach` pages are worth a thread. At least
/// one.
int threadsFor(
    int pageCount, int processors, std::uint64_t bytesLeft, const PoolMemory &memory, int pagesEach = pagesPerThread);

/// threadsFor() for this machine and process. Each thread opens the file again.
int poolSize(int pageCount, const PoolMemory &memory = {}, int pagesEach = pagesPerThread);

/// Makes poolSize() assume a number of processors; 0 restores that of the machine. For tests.
void assumeProcessors(int count);

/// Returns the positions 1 to `pageCount`. Thread-safe.
PageSource pagesOneByOne(int pageCount);

/// Runs `work` in a number of threads, including the calling one, which share the pages. If the system cannot start all
/// threads, the others do the work. The pages are shown as progress. After the first failure no more pages are handed
/// out; it is rethrown when all threads have finished.
void runPool(int threads, int pageCount, const std::function<void(const PageSource &)> &work);

/// Calls `work` for each page, numbered from 0, for several pages in parallel if there are many. The first failure is
/// rethrown when all threads have finished.
void forEachPage(int pageCount, const std::function<void(int)> &work);

} // namespace quorra
