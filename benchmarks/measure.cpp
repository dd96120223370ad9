// SPDX-License-Identifier: GPL-3.0-or-later
#include "measure.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace benchmark {

namespace {

long statusField(const std::string &name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == name) {
            long value = 0;
            status >> value;
            return value;
        }
    }
    return 0;
}

void writeAll(int descriptor, const char *bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written <= 0) {
            return;
        }
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
}

/// Runs in the child: neither exceptions nor destructors may run the parent's cleanup.
[[noreturn]] void measureAndExit(const std::function<std::vector<double>()> &work, int resultEnd)
{
    try {
        const std::vector<double> values = work();
        writeAll(resultEnd, reinterpret_cast<const char *>(values.data()), values.size() * sizeof(double));
        ::_exit(0);
    } catch (const std::exception &problem) {
        std::cerr << "benchmark: " << problem.what() << std::endl;
        ::_exit(1);
    }
}

} // namespace

double milliseconds(const std::function<void()> &work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values)
{
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Sides interleaved(int rounds, const std::function<double()> &ours, const std::function<double()> &floor)
{
    std::vector<double> oursTimes;
    std::vector<double> floorTimes;
    for (int round = 0; round < rounds; ++round) {
        if (round % 2 == 0) {
            oursTimes.push_back(ours());
        }
        floorTimes.push_back(floor());
        if (round % 2 == 1) {
            oursTimes.push_back(ours());
        }
    }
    return {median(oursTimes), median(floorTimes)};
}

std::vector<double> inOwnProcess(const std::function<std::vector<double>()> &work)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return {};
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        measureAndExit(work, ends[1]);
    }
    ::close(ends[1]);
    const std::string bytes = child > 0 ? readAll(ends[0]) : std::string();
    ::close(ends[0]);
    int status = -1;
    if (child > 0) {
        ::waitpid(child, &status, 0);
    }
    if (status != 0) {
        return {};
    }
    std::vector<double> values(bytes.size() / sizeof(double));
    std::memcpy(values.data(), bytes.data(), values.size() * sizeof(double));
    return values;
}

long residentMemory()
{
    return statusField("VmRSS:");
}

long peakMemory()
{
    return statusField("VmHWM:");
}

void resetPeakMemory()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

std::string readAll(int descriptor)
{
    std::string all;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(descriptor, buffer.data(), buffer.size())) > 0) {
        all.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return all;
}

MemoryFolder::MemoryFolder()
{
    std::error_code error;
    const std::filesystem::path shared = "/dev/shm";
    const std::filesystem::path base =
        std::filesystem::is_directory(shared, error) ? shared : std::filesystem::temp_directory_path();
    m_path = (base / "quorra-benchmark-XXXXXX").string();
    if (!::mkdtemp(m_path.data())) {
        throw std::runtime_error("no folder can be made in " + base.string());
    }
}

MemoryFolder::~MemoryFolder()
{
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

} // namespace benchmark
