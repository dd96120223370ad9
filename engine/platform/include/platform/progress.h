// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/// Shows on a terminal what a conversion that takes long is doing. There is one line, which the next one replaces.
namespace quorra::progress {

/// Shows progress on this descriptor, if it is that of a terminal that can clear a line. Otherwise, and without a call
/// of this function, the other functions do nothing.
void enable(int descriptor);

/// Names the work on pages that follows: "Reading".
void beginStep(std::string_view name);

/// Shows "NAME page POSITION of COUNT", unless the run is short so far. Thread-safe.
void showPage(int position, int count);

/// Shows the text at once.
void show(std::string_view text);

/// Clears the line, if it is shown. Async-signal-safe.
void clear();

} // namespace quorra::progress
