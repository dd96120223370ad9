// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/guards.h"

namespace quorra::guards {

/// Refuses with EPERM, to this process and its child processes, the system calls that the engine and LibreOffice do not
/// need. Returns whether the kernel accepted it.
bool filterSystemCalls(Programs programs);

} // namespace quorra::guards
