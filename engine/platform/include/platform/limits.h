// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

namespace quorra::limits {

// Sufficient for every legitimate file that was tried, at 150 dpi; with twice as much, a decompression bomb runs for
// minutes.
inline constexpr std::uint64_t addressSpaceBytes = 1ULL << 30;
inline constexpr unsigned cpuSeconds = 600;
inline constexpr unsigned cpuSecondsWithScans = 7200; ///< of a run that recognises text in many pictures of pages
inline constexpr std::uint64_t helperAddressSpaceBytes = 4ULL << 30;
inline constexpr unsigned helperCpuSeconds = 300;
inline constexpr std::uint64_t outputBytes = 4ULL << 30; ///< largest file that the engine writes

inline constexpr int largestSide = 20000;                ///< pixels, for each side of a picture
inline constexpr std::int64_t largestArea = 250'000'000; ///< pixels, for a whole picture

/// Processor time for opening a file and finding its pages, in seconds.
inline constexpr unsigned openingSeconds = 20;

/// Limits memory, processor time, file size and core files of this process, and blocks Internet sockets for it and its
/// child processes. Limits that the system does not support are omitted.
void apply();

/// Sets the total processor time of this process, counted from its start. The system rounds to seconds.
void allowProcessorTime(std::chrono::milliseconds time);

/// Returns what is left of the time that was last passed to allowProcessorTime(), or 0.
std::chrono::milliseconds processorTimeLeft();

/// Converts fatal signals in the PDF library (out of memory, processor time, crashes) to one line and an exit status.
/// An abort is reported as lack of memory only if an allocation has failed before. The line is written to
/// `errorDescriptor`.
void catchFatalSignals(int errorDescriptor);

/// Gives the calling thread its own signal stack, so that a stack overflow can be reported.
void prepareThread();

} // namespace quorra::limits
