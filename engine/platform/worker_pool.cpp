// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/worker_pool.h"

#include "platform/limits.h"
#include "platform/memory_left.h"
#include "platform/progress.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace quorra {

namespace {

constexpr int mostThreads = 4;

/// Address space for each thread: the allocator reserves 64 MiB, the stack has 8 MiB, and the file is opened again.
constexpr std::uint64_t threadBytes = 96ULL << 20;

std::atomic<int> assumedProcessors{0};

/// Keeps the first failure of several threads.
class FirstFailure
{
public:
    /// Call it while an exception is being handled.
    void keep()
    {
        const std::lock_guard lock(m_mutex);
        if (!m_failure) {
            m_failure = std::current_exception();
        }
        m_any = true;
    }

    bool any() const { return m_any; }

    void rethrow() const
    {
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
    }

private:
    std::atomic<bool> m_any{false};
    std::mutex m_mutex;
    std::exception_ptr m_failure;
};

/// Threads that the destructor joins. (std::jthread is missing in the C++ library of macOS.)
class JoinedThreads
{
public:
    JoinedThreads() = default;
    JoinedThreads(const JoinedThreads &) = delete;
    JoinedThreads &operator=(const JoinedThreads &) = delete;

    ~JoinedThreads()
    {
        for (std::thread &thread : m_threads) {
            thread.join();
        }
    }

    /// Starts up to `count` threads; fewer if a limit of the user or the system is reached.
    void start(int count, const std::function<void()> &work)
    {
        m_threads.reserve(static_cast<std::size_t>(std::max(0, count)));
        try {
            while (static_cast<int>(m_threads.size()) < count) {
                m_threads.emplace_back(work);
            }
        } catch (const std::system_error &) {
            return;
        }
    }

private:
    std::vector<std::thread> m_threads;
};

} // namespace

int threadsFor(int pageCount, int processors, std::uint64_t bytesLeft, const PoolMemory &memory, int pagesEach)
{
    const std::uint64_t forThreads = bytesLeft > memory.shared ? bytesLeft - memory.shared : 0;
    const auto fitting = static_cast<int>(
        std::min<std::uint64_t>(forThreads / (threadBytes + memory.perThread), std::uint64_t{mostThreads}));
    return std::max(1, std::min({processors, pageCount / pagesEach, fitting}));
}

int poolSize(int pageCount, const PoolMemory &memory, int pagesEach)
{
    const int assumed = assumedProcessors;
    const int processors = assumed > 0 ? assumed : static_cast<int>(std::thread::hardware_concurrency());
    return threadsFor(pageCount, processors, memoryLeft(), memory, pagesEach);
}

void assumeProcessors(int count)
{
    assumedProcessors = count;
}

PageSource pagesOneByOne(int pageCount)
{
    return [given = std::make_shared<std::atomic<int>>(0), pageCount] {
        const int position = ++*given;
        return position <= pageCount ? position : 0;
    };
}

void runPool(int threads, int pageCount, const std::function<void(const PageSource &)> &work)
{
    FirstFailure failure;
    const PageSource pages = pagesOneByOne(pageCount);
    const PageSource next = [&failure, &pages, pageCount] {
        const int position = failure.any() ? 0 : pages();
        if (position > 0) {
            progress::showPage(position, pageCount);
        }
        return position;
    };
    const auto workAndKeepFailure = [&] {
        try {
            work(next);
        } catch (...) {
            failure.keep();
        }
    };
    {
        JoinedThreads others;
        others.start(threads - 1, [&] {
            limits::prepareThread();
            workAndKeepFailure();
        });
        workAndKeepFailure();
    }
    failure.rethrow();
}

void forEachPage(int pageCount, const std::function<void(int)> &work)
{
    const auto all = [&work](const PageSource &next) {
        while (const int position = next()) {
            work(position - 1);
        }
    };
    runPool(poolSize(pageCount), pageCount, all);
}

} // namespace quorra
