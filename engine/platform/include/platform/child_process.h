// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/guards.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace quorra {

/// A program to run until it exits.
struct ChildCommand
{
    std::string program;                  ///< full path; also its argument 0
    std::vector<std::string> arguments;   ///< without argument 0
    std::vector<std::string> environment; ///< "NAME=value", set over the inherited ones
    std::string workingFolder;            ///< empty: inherited
    std::uint64_t addressSpaceBytes = 0;  ///< 0: inherited
    unsigned cpuSeconds = 0;              ///< 0: inherited
    std::chrono::milliseconds wallLimit{60'000};
    guards::FileRules files; ///< all that it can use; empty: what this process can use
};

enum class ChildEnd { Exited, Signalled, TimedOut, NotStarted };

struct ChildResult
{
    ChildEnd end = ChildEnd::NotStarted;
    int status = 0; ///< exit status or signal number
};

/// Runs the command in its own process group, with the standard streams connected to /dev/null, and waits until it
/// exits. It is killed when this process dies; the whole group is killed when the wall clock limit is exceeded. Call it
/// from the main thread only: the parent death signal is sent when the thread that forked exits.
ChildResult runChild(const ChildCommand &command);

} // namespace quorra
