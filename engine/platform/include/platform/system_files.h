// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/guards.h"

#include <cstddef>
#include <string>

namespace quorra::guards {

/// Returns the rules for what programs need of the system: libraries, wherever those of this process are, tables of
/// character sets and languages, time zones, what the kernel tells about the machine. No file of a user, no process,
/// and no password file.
FileRules systemFiles();

/// Returns the rules for the fonts of the system and the user: the configuration of fontconfig, the folders it names,
/// their links to other places, and its caches, which can be read but not changed.
FileRules fontFiles();

/// Returns a rule for reading a folder, with rules for what the links in it lead to; nothing if there is no such
/// folder.
FileRules linkedFolder(const std::string &path);

/// Returns the rules for executing a program with its interpreter: the dynamic linker, or what a script names. For a
/// script, also for the programs in the folders of $PATH, which it may call.
FileRules programFiles(const std::string &path);

/// Returns the first bytes of a file, `most` of them at most; nothing if it cannot be read.
std::string startOf(const std::string &path, std::size_t most);

/// Returns whether the file is a script, which starts with "#!".
bool isScript(const std::string &path);

} // namespace quorra::guards
