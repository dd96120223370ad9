// SPDX-License-Identifier: GPL-3.0-or-later
// An engine that prints 400 MB on each of its two channels. Nobody reads them, so they must not accumulate anywhere.
#include <array>
#include <cstddef>

#include <unistd.h>

int main()
{
    constexpr std::size_t total = 400'000'000;
    std::array<char, 50'000> block{};
    block.fill('x');
    block.back() = '\n';
    for (std::size_t sent = 0; sent < total; sent += block.size()) {
        if (::write(STDOUT_FILENO, block.data(), block.size()) < 0) {
            return 1;
        }
        if (::write(STDERR_FILENO, block.data(), block.size()) < 0) {
            return 1;
        }
    }
    return 0;
}
