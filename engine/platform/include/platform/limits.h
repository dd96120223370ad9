// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

namespace quorra::limits {

// Enough for every honest file tried at 150 dpi; with twice as much, a file made to unpack without end runs for
// minutes.
inline constexpr std::uint64_t addressSpaceBytes = 1ULL << 30;
inline constexpr unsigned cpuSeconds = 600;
inline constexpr std::uint64_t helperAddressSpaceBytes = 4ULL << 30;
inline constexpr unsigned helperCpuSeconds = 300;
inline constexpr std::uint64_t outputBytes = 4ULL << 30; ///< largest single file the engine writes

inline constexpr int largestSide = 20000;                ///< pixels of a picture's side
inline constexpr std::int64_t largestArea = 250'000'000; ///< pixels of a picture

/// Processor time for opening a file and finding its pages.
inline constexpr unsigned openingSeconds = 20;

/// Limits this process's memory, time, file size and core files, and takes the network away from it and from every
/// process it starts. Where the system has no such limit, that one is left out.
void apply();

/// Sets the processor time that this process may take in all, counted from its start. The system counts whole seconds.
void allowProcessorTime(std::chrono::milliseconds time);

/// Processor time that this process has taken, in all its threads.
std::chrono::milliseconds processorTimeTaken();

/// Turns signals by which the PDF library dies (out of memory, processor time, a crash) into one line and an exit
/// status. An abort is told as lack of memory only if an allocation failed before. `errorDescriptor` is where the line
/// goes.
void catchFatalSignals(int errorDescriptor);

/// Gives the calling thread a signal stack of its own, so that a stack overflow in it can still be told.
void prepareThread();

} // namespace quorra::limits
