// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/guards.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace quorra {
class TempFolder;
}

namespace quorra::office {

/// The component of LibreOffice that a document requires.
enum class Component { Writer, Calc, Impress };

/// Returns where to look for the LibreOffice executable, in order of preference: only `named` (the value of
/// QUORRA_SOFFICE) if it is set; otherwise the usual folders, and the folder of the target of each "soffice" in the
/// search path. The files need not exist.
std::vector<std::string> officeCandidates(const char *named, const char *searchPath);

/// Returns the first candidate that is executable and has the component. Throws Failure(Helper) with a message that
/// names the package to install.
std::string findOffice(const std::vector<std::string> &candidates, Component component);

/// Returns the last part of the name of LibreOffice's socket for a profile (a file: URL). It follows "OSL_PIPE_" and
/// the user ID, if known.
std::string socketName(const std::string &profileAddress);

/// Removes sockets of LibreOffice left in the system's temporary folders by killed engines. Call it before creating a
/// TempFolder: that removes the folders from which the names of the sockets are derived.
void sweepSockets();

/// Returns what this process must be allowed to do with files, so that exportFile() with the program, which need not
/// exist, and with a folder of this path can do its work and clean up.
guards::FileRules exportRules(const std::string &program, const std::string &folder);

/// Exports a flat ODF file in `folder` to the format of the extension (lower case, with its dot). `program` is the
/// result of findOffice(). LibreOffice may use `processorTime`, rounded down to seconds. Returns the path of the new
/// file, which is in `folder`, as are all files that LibreOffice creates for itself; its installation is not modified.
/// LibreOffice can read itself and the system's fonts, and nothing else; a script instead of it, which only the user
/// can name, can do what this process can.
/// Throws Failure(Helper), Failure(Limit) or Failure(CannotWrite).
std::string exportFile(
    const TempFolder &folder, const std::string &program, const std::string &sourcePath, std::string_view extension,
    int pageCount, std::chrono::milliseconds processorTime);

} // namespace quorra::office
