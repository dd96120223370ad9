// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/time_allowance.h"

#include "platform/limits.h"

#include <algorithm>

#include <QByteArray>

namespace quorra {

namespace {

// Seconds of processor time. docs/limits.md lists the measurements they are based on.
constexpr double onePage = 20;    // the slowest legitimate page that was tried takes three quarters of it
constexpr double eachPage = 0.25; // ordinary pages take a fifth of it
constexpr double megabyte = 2;    // JPEG 2000 written as PostScript takes 1.7
constexpr double aroundPages = 2; // opening the file, analysis, writing
constexpr double eachScan = 20;   // a page of small print takes a quarter of it
constexpr double helperStart = 4; // LibreOffice starts in half a second
constexpr double helperPage = 1;

constexpr double bytesOfMegabyte = 1e6;
constexpr double leastBytesOfPage = 1024; // a file that claims to have more pages has hardly any content on them
constexpr double finest = 120;            // the largest picture has this many times the pixels of US Letter

std::chrono::milliseconds milliseconds(double seconds, double most)
{
    return std::chrono::milliseconds(static_cast<std::int64_t>(std::min(seconds, most) * 1000));
}

} // namespace

TimeAllowance timeAllowance(const Workload &workload, double factor)
{
    const double claimed = std::max(1, workload.pages);
    const auto bytes = static_cast<double>(workload.bytes);
    const double pages = std::clamp(bytes / leastBytesOfPage, 1.0, claimed);
    const double ofBytes = megabyte * bytes / bytesOfMegabyte;
    const double ofPixels = eachPage * std::clamp(workload.finer, 1.0, finest);
    TimeAllowance allowance;
    allowance.page = milliseconds(factor * (onePage + ofPixels + ofBytes / claimed), limits::cpuSeconds);
    allowance.run = milliseconds(factor * (aroundPages + onePage + ofPixels * pages + ofBytes), limits::cpuSeconds);
    allowance.scan = milliseconds(factor * eachScan, limits::cpuSeconds);
    if (workload.scans > 0) {
        allowance.run = std::min<std::chrono::milliseconds>(
            allowance.run + workload.scans * allowance.scan, std::chrono::seconds{limits::cpuSecondsWithScans});
    }
    allowance.helper = milliseconds(factor * (helperStart + helperPage * pages), limits::helperCpuSeconds);
    return allowance;
}

double timeFactor(const char *text)
{
    bool isNumber = false;
    const double factor = QByteArray(text).toDouble(&isNumber); // independent of the locale
    return isNumber && factor >= 0.01 && factor <= 100 ? factor : 1;
}

} // namespace quorra
