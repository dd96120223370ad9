// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/image/page_pool.h"

#include "engine/platform/limits.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace quorra {

namespace {

constexpr int MostThreads = 4;
constexpr int PagesPerThread = 4;

} // namespace

int poolSize(int pageCount)
{
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    return std::clamp(std::min(cores, pageCount / PagesPerThread), 1, MostThreads);
}

void runPool(int threads, int pageCount, const std::function<void(PageSource)> &work)
{
    std::atomic<int> given{0};
    const PageSource next = [&given, pageCount] {
        const int position = ++given;
        return position > 0 && position <= pageCount ? position : 0;
    };
    if (threads <= 1) {
        work(next);
        return;
    }
    std::mutex mutex;
    std::exception_ptr failure;
    std::vector<std::thread> pool;
    for (int i = 0; i < threads; ++i)
        pool.emplace_back([&] {
            limits::prepareThread();
            try {
                work(next);
            } catch (...) {
                const std::lock_guard lock(mutex);
                if (!failure)
                    failure = std::current_exception();
                given = pageCount;
            }
        });
    for (std::thread &thread : pool)
        thread.join();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace quorra
