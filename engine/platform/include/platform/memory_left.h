// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace quorra {

/// Returns how many bytes of address space this process can still allocate within its memory limit; 0 when the limit is
/// reached. If the system sets no limit, the engine's own limit applies.
std::uint64_t memoryLeft();

} // namespace quorra
