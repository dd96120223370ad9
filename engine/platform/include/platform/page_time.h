// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"

#include <chrono>

namespace quorra {

/// Sets how much processor time a page may take from now on. Until then it is not limited.
void allowPageTime(std::chrono::nanoseconds allowance);

/// The processor time of the calling thread is a page's while this object lives. Past what a page is allowed, in all
/// objects of that page together, the process ends with one line that names the page. Where the system cannot
/// watch over a thread's time, only the whole run's time is limited.
class PageTime
{
public:
    /// Pages count from 1.
    explicit PageTime(int page);
    ~PageTime();
    PageTime(const PageTime &) = delete;
    PageTime &operator=(const PageTime &) = delete;

private:
    int m_page;
    std::chrono::nanoseconds m_begin;
    platform::ThreadAlarm m_alarm;
};

} // namespace quorra
