// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/guards.h"

namespace quorra::guards {

Active lockIn(const FileRules & /*files*/, Programs /*programs*/)
{
    return {};
}

PreparedRules::PreparedRules(const FileRules & /*files*/) {}

PreparedRules::~PreparedRules() = default;

void PreparedRules::enter() const {}

} // namespace quorra::guards
