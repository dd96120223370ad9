// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/platform/page_pool.h"

#include "engine/platform/limits.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
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

PageSource pagesOneByOne(int pageCount)
{
    return [given = std::make_shared<std::atomic<int>>(0), pageCount] {
        const int position = ++*given;
        return position <= pageCount ? position : 0;
    };
}

void runPool(int threads, int pageCount, const std::function<void(const PageSource &)> &work)
{
    std::atomic<bool> failed{false};
    const PageSource pages = pagesOneByOne(pageCount);
    const PageSource next = [&failed, &pages] { return failed ? 0 : pages(); };
    std::mutex mutex;
    std::exception_ptr failure;
    std::vector<std::thread> pool;
    pool.reserve(static_cast<std::size_t>(threads));
    for (int i = 0; i < threads; ++i)
        pool.emplace_back([&] {
            limits::prepareThread();
            try {
                work(next);
            } catch (...) {
                const std::lock_guard lock(mutex);
                if (!failure)
                    failure = std::current_exception();
                failed = true;
            }
        });
    for (std::thread &thread : pool)
        thread.join();
    if (failure)
        std::rethrow_exception(failure);
}

void forEachPage(int pageCount, const std::function<void(int)> &work)
{
    const auto all = [&work](const PageSource &next) {
        while (const int position = next())
            work(position - 1);
    };
    const int threads = poolSize(pageCount);
    if (threads == 1)
        all(pagesOneByOne(pageCount));
    else
        runPool(threads, pageCount, all);
}

} // namespace quorra
