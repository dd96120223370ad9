// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace quorra {

/// Bytes that this process may still take before its memory limit; the engine's own limit counts where the system sets
/// none. 0 when the limit is reached.
std::uint64_t memoryLeft();

} // namespace quorra
