// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

namespace quorra {

/// The size of a conversion, as far as it is known in advance.
struct Workload
{
    int pages = 1;           ///< pages to convert
    std::uint64_t bytes = 0; ///< share of the file size that belongs to these pages
    double finer = 1;        ///< number of pixels relative to the default resolution
    int scans = 0;           ///< pages whose text has to be recognised
};

/// Processor time limits of a conversion.
struct TimeAllowance
{
    std::chrono::milliseconds page{};   ///< one page, including all renderings of it
    std::chrono::milliseconds run{};    ///< the whole process, from its start
    std::chrono::milliseconds helper{}; ///< the helper process that exports the document
    std::chrono::milliseconds scan{};   ///< the recognition of text in one page, in addition to the page's time
};

/// Computes the limits; docs/limits.md explains them. A workload without pages is treated like one page. `factor`
/// scales the result; 1 is normal.
TimeAllowance timeAllowance(const Workload &workload, double factor);

/// Parses a factor, such as the value of QUORRA_TIME_FACTOR. Returns 1 for null and for anything but a number from 0.01
/// to 100.
double timeFactor(const char *text);

} // namespace quorra
