// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace quorra {

struct PasswordPair
{
    std::string user;
    std::string owner;

    bool operator==(const PasswordPair &) const = default;
};

/// Returns the pairs to try, in order: as given; swapped, because users confuse the two fields; then both again in
/// Latin-1, which older files use for passwords. There are no duplicates.
std::vector<PasswordPair> passwordsToTry(const std::string &user, const std::string &owner);

/// Converts UTF-8 to Latin-1. Returns an empty text if it cannot be converted or is not UTF-8.
std::string latin1FromUtf8(const std::string &text);

} // namespace quorra
