// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace quorra {

/// Standard error kept aside for the one line that a failure prints; the standard streams themselves lead nowhere from
/// then on, so that no library's messages pile up in a pipe that nobody reads.
class ErrorLine
{
public:
    ErrorLine();

    /// Prints "Qtminw: " and the text as one line: line breaks and other control characters become blanks.
    void print(const std::string &text) const;

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace quorra
