// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/guards.h"

namespace quorra::guards {

void append(FileRules &rules, const FileRules &more)
{
    rules.insert(rules.end(), more.begin(), more.end());
}

std::string describe(const Active &active)
{
    std::string text;
    if (active.landlock > 0) {
        text = "Landlock " + std::to_string(active.landlock);
    }
    if (active.seccomp) {
        text += text.empty() ? "seccomp" : ", seccomp";
    }
    return text.empty() ? "none" : text;
}

} // namespace quorra::guards
