// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"

#include <string>

namespace quorra {

/// A name for a file in the making, never given twice by living processes: it holds the process's number.
std::string newPartPath(const std::string &folder);

/// Begins a file under a provisional name and locks it. -1 as its descriptor and errno tell a failure.
platform::UnnamedFile beginPartFile(const std::string &folder);

/// Removes provisional files of dead processes from the folder. Never throws.
void sweepPartFiles(const std::string &folder);

/// Removes the provisional files of this process, whoever holds them open. For the handler of a fatal signal.
void removePartFilesNow();

/// True when the process that wrote its number into this name, "PREFIX<pid>-...", no longer lives.
bool ownerIsGone(const std::string &name, const std::string &prefix);

} // namespace quorra
