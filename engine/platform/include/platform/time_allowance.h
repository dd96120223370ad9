// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

namespace quorra {

/// What a conversion has to do, as far as that is known before it begins.
struct Workload
{
    int pages = 1;           ///< pages to convert
    std::uint64_t bytes = 0; ///< of the file that belong to them
    double finer = 1;        ///< pixels asked for to one at the default resolution
};

/// Processor time that a conversion may take.
struct TimeAllowance
{
    std::chrono::milliseconds page{};   ///< one page, however often it is drawn
    std::chrono::milliseconds run{};    ///< everything in this process, from its start
    std::chrono::milliseconds helper{}; ///< a helper that turns the pages into the output
};

/// Works out what is allowed; docs/limits.md tells why. Both figures of a workload of no pages are those of one page.
/// `factor` stretches the result: 1 is the usual speed.
TimeAllowance timeAllowance(const Workload &workload, double factor);

/// The factor that a text names, such as the value of QUORRA_TIME_FACTOR. 1 for null and for what is no number
/// from 0.01 to 100.
double timeFactor(const char *text);

} // namespace quorra
