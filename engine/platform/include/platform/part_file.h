// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"

#include <string>

namespace quorra {

/// Returns a new name for an incomplete file, unique among running processes: it contains the process ID.
std::string newPartPath(const std::string &folder);

/// Creates a file with a temporary name and locks it. On failure, the descriptor is -1 and errno is set.
platform::UnnamedFile beginPartFile(const std::string &folder);

/// Removes temporary files of processes that no longer run from the folder. Never throws.
void sweepPartFiles(const std::string &folder);

/// Removes the temporary files of this process, even if they are open. For the handler of a fatal signal.
void removePartFilesNow();

/// Returns true if the process whose ID is in this name, "PREFIX<pid>-...", no longer runs.
bool ownerIsGone(const std::string &name, const std::string &prefix);

} // namespace quorra
