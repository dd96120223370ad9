// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace quorra {

/// What the engine's exit status says to whoever started it.
enum class ExitStatus {
    Done = 0,
    Usage = 1,
    CannotOpen = 2,
    Password = 3,
    NotPermitted = 4,
    CannotWrite = 5,
    Limit = 6,
    Helper = 7,
};

/// Ends the conversion: carries the exit status and the one line, without a line break, that is shown.
class Failure : public std::runtime_error
{
public:
    Failure(ExitStatus status, const std::string &line) : std::runtime_error(line), m_status(status) {}

    ExitStatus status() const { return m_status; }

private:
    ExitStatus m_status;
};

} // namespace quorra
