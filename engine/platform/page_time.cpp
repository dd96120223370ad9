// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/page_time.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <mutex>

namespace quorra {

namespace {

using std::chrono::nanoseconds;

/// Processor time used by the pages of this process. Thread-safe.
class Accounts
{
public:
    void allow(nanoseconds allowance)
    {
        const std::lock_guard lock(m_mutex);
        m_allowance = allowance;
    }

    /// The remaining time of the page; at least a minimum, because 0 means no limit.
    nanoseconds left(int page)
    {
        const std::lock_guard lock(m_mutex);
        return m_allowance.count() == 0 ? m_allowance : std::max(nanoseconds{1}, m_allowance - m_spent[page]);
    }

    void add(int page, nanoseconds time)
    {
        const std::lock_guard lock(m_mutex);
        m_spent[page] += time;
    }

private:
    std::mutex m_mutex;
    nanoseconds m_allowance{0};
    std::map<int, nanoseconds> m_spent;
};

Accounts &accounts()
{
    static Accounts instance;
    return instance;
}

nanoseconds threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds{time.tv_sec} + nanoseconds{time.tv_nsec};
}

} // namespace

void allowPageTime(nanoseconds allowance)
{
    accounts().allow(allowance);
}

PageTime::PageTime(int page) : m_page(page), m_apart(false), m_begin(threadTime()), m_alarm(accounts().left(page), page)
{}

PageTime::PageTime(int page, nanoseconds allowance)
    : m_page(page)
    , m_apart(true)
    , m_begin(threadTime())
    , m_alarm(allowance, page)
{}

PageTime::~PageTime()
{
    if (!m_apart) {
        accounts().add(m_page, threadTime() - m_begin);
    }
}

} // namespace quorra
