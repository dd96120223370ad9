// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace quorra {

/// Keeps a duplicate of standard error for the line that reports a failure, and redirects the standard streams to the
/// null device, so that messages of libraries cannot fill a pipe that nobody reads.
class ErrorLine
{
public:
    ErrorLine();

    /// Prints "Qtminw: " and the text as one line; control characters, line breaks included, are replaced by spaces.
    /// Clears progress.
    void print(const std::string &text) const;

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace quorra
