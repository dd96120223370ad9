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

/// The pairs to try, in order: as given; exchanged, since users mix the two boxes up; then both again in Latin-1, in
/// which older files hold passwords. No pair stands twice.
std::vector<PasswordPair> passwordsToTry(const std::string &user, const std::string &owner);

/// UTF-8 text in Latin-1; empty when a character has no place there or the text is no UTF-8.
std::string latin1FromUtf8(const std::string &text);

} // namespace quorra
