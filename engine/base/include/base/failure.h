// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace quorra {

/// The exit statuses of the engine.
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

/// An error that ends the conversion, with the exit status and the message: one line, without a line break.
class Failure : public std::runtime_error
{
public:
    Failure(ExitStatus status, const std::string &line) : std::runtime_error(line), m_status(status) {}

    ExitStatus status() const { return m_status; }

private:
    ExitStatus m_status;
};

} // namespace quorra
