// SPDX-License-Identifier: GPL-3.0-or-later
// Layout of the fake engine's log, shared by the engine (which does not use Qt) and the tests that read it.
#pragma once

#include <cstdint>

constexpr char engineLogStart = 'S'; ///< payload: each argument after the program name, ended by a zero byte
constexpr char engineLogEnd = 'E';   ///< no payload; missing when the engine crashed or was killed

struct EngineLogHeader
{
    char kind;
    std::uint32_t run;
    std::uint32_t pid;
    std::uint32_t payloadBytes;
};
