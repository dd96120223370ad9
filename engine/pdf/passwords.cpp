// SPDX-License-Identifier: GPL-3.0-or-later
#include "passwords.h"

#include <algorithm>

namespace quorra {

std::vector<PasswordPair> passwordsToTry(const std::string &user, const std::string &owner)
{
    std::vector<PasswordPair> pairs;
    const auto add = [&pairs](const PasswordPair &pair) {
        if (std::find(pairs.begin(), pairs.end(), pair) == pairs.end()) {
            pairs.push_back(pair);
        }
    };
    add({user, owner});
    add({owner, user});
    const std::string userLatin1 = latin1FromUtf8(user);
    const std::string ownerLatin1 = latin1FromUtf8(owner);
    if (!userLatin1.empty() || !ownerLatin1.empty()) {
        add({userLatin1, ownerLatin1});
        add({ownerLatin1, userLatin1});
    }
    return pairs;
}

std::string latin1FromUtf8(const std::string &text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        if (lead < 0x80) {
            result += text[i];
            continue;
        }
        // In UTF-8, C2 and C3 start the characters of the upper half of Latin-1.
        const bool twoBytes = (lead == 0xC2 || lead == 0xC3) && i + 1 < text.size();
        const unsigned char trail = twoBytes ? static_cast<unsigned char>(text[i + 1]) : 0;
        if ((trail & 0xC0) != 0x80) {
            return {};
        }
        result += static_cast<char>(((lead & 0x03) << 6) | (trail & 0x3F));
        ++i;
    }
    return result;
}

} // namespace quorra
