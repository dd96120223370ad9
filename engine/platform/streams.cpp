// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/streams.h"

#include "platform/progress.h"

#include <algorithm>

#include <fcntl.h>
#include <unistd.h>

namespace quorra {

namespace {

constexpr int firstFree = STDERR_FILENO + 1;

} // namespace

ErrorLine::ErrorLine() : m_descriptor(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, firstFree))
{
    const int nowhere = open("/dev/null", O_RDWR);
    if (nowhere < 0) {
        return;
    }
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
#ifndef QUORRA_SANITIZED
    // The sanitizers write their reports there.
    dup2(nowhere, STDERR_FILENO);
#endif
    if (nowhere >= firstFree) {
        close(nowhere);
    }
}

void ErrorLine::print(const std::string &text) const
{
    std::string line = "Qtminw: " + text;
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, ' ');
    line += '\n';
    progress::clear();
    [[maybe_unused]] const ssize_t written = write(m_descriptor, line.data(), line.size());
}

} // namespace quorra
