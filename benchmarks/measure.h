// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace benchmark {

/// The two measurements of a figure, each the median of its rounds, in the unit of the measured work.
struct Sides
{
    double ours = 0;
    double floor = 0;
};

/// Wall-clock time of `work` in milliseconds.
double milliseconds(const std::function<void()> &work);

/// The middle value; the mean of the two middle ones for an even count, 0 for no value.
double median(std::vector<double> values);

/// Calls both functions alternately, `rounds` times; the order alternates, so that neither benefits from warm caches or
/// temporary load. Each call returns its own measurement.
Sides interleaved(int rounds, const std::function<double()> &ours, const std::function<double()> &floor);

/// Runs `work` in a forked child, so that measurements do not affect each other's memory, and returns its values; empty
/// if the child fails. Call it before any thread or application object exists.
std::vector<double> inOwnProcess(const std::function<std::vector<double>()> &work);

/// Resident memory of this process in KiB: the current value, and the peak since the last resetPeakMemory().
long residentMemory();
long peakMemory();
void resetPeakMemory();

/// Reads from a file descriptor until the end of the stream.
std::string readAll(int descriptor);

/// A new folder in the memory file system (or, if there is none, in the folder for temporary files), removed by the
/// destructor. Avoids that writes to the settings file wait for the disk.
class MemoryFolder
{
public:
    MemoryFolder();
    ~MemoryFolder();
    MemoryFolder(const MemoryFolder &) = delete;
    MemoryFolder &operator=(const MemoryFolder &) = delete;

    /// Absolute path without a trailing slash.
    const std::string &path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace benchmark
