// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace benchmark {

/// The two sides of a figure, each the median of its rounds, in the unit of the work measured.
struct Sides
{
    double ours = 0;
    double floor = 0;
};

/// Wall-clock time of `work` in milliseconds.
double milliseconds(const std::function<void()> &work);

/// The middle value; the mean of the two middle ones for an even count, 0 for no value.
double median(std::vector<double> values);

/// Calls both sides in turn, `rounds` times; the side that begins alternates, so that a slow spell of the machine and
/// warm caches favour neither. Each call returns its own measurement.
Sides interleaved(int rounds, const std::function<double()> &ours, const std::function<double()> &floor);

/// Runs `work` in a forked child, so that one measurement cannot warm or fragment the memory of the next, and returns
/// its values; empty if the child did not end well. Call it before any thread or application object exists.
std::vector<double> inOwnProcess(const std::function<std::vector<double>()> &work);

/// Resident memory of this process in KiB: now, and the highest since the last resetPeakMemory().
long residentMemory();
long peakMemory();
void resetPeakMemory();

/// Reads a whole stream of a file descriptor until its end.
std::string readAll(int descriptor);

/// A new folder in the memory file system (or, where there is none, in the place for temporary files), removed with
/// all its files at the end. Writes to the settings file wait for the disk; here there is none to wait for.
class MemoryFolder
{
public:
    MemoryFolder();
    ~MemoryFolder();
    MemoryFolder(const MemoryFolder &) = delete;
    MemoryFolder &operator=(const MemoryFolder &) = delete;

    /// Absolute path, without a slash at its end.
    const std::string &path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace benchmark
