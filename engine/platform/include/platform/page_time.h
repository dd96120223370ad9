// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"

#include <chrono>

namespace quorra {

/// Sets the processor time limit per page for objects created from now on. Before this call there is no limit.
void allowPageTime(std::chrono::nanoseconds allowance);

/// Attributes the processor time of the calling thread to a page while the object exists. If all objects of a page
/// together exceed the limit, the process exits with one line that names the page. If the system has no timers for the
/// processor time of threads, only the limit of the whole run applies.
class PageTime
{
public:
    /// Pages are numbered from 1.
    explicit PageTime(int page);

    /// For work on the page that has a limit of its own, which is not part of that of the page.
    PageTime(int page, std::chrono::nanoseconds allowance);
    ~PageTime();
    PageTime(const PageTime &) = delete;
    PageTime &operator=(const PageTime &) = delete;

private:
    int m_page;
    bool m_apart; ///< from the other work on the page
    std::chrono::nanoseconds m_begin;
    platform::ThreadAlarm m_alarm;
};

} // namespace quorra
