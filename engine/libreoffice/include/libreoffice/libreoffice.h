// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace quorra {
class TempFolder;
}

namespace quorra::office {

/// The part of LibreOffice that a document needs.
enum class Component { Writer, Calc, Impress };

/// Where LibreOffice's own program is looked for, best first: what QUORRA_SOFFICE names (then nothing else), the
/// usual folders, and beside the target of every "soffice" on PATH. The files need not exist.
std::vector<std::string> officeCandidates(const char *named, const char *searchPath);

/// The first candidate that can be executed and has the component. Throws Failure(Helper) with a line that names the
/// package to install.
std::string findOffice(const std::vector<std::string> &candidates, Component component);

/// How the name of LibreOffice's socket for this profile (a file: address) ends: "OSL_PIPE_", the user's number where
/// it is known, and this.
std::string socketName(const std::string &profileAddress);

/// Removes the sockets that LibreOffice left in the system's temporary folders when its engine was killed. To be called
/// before a TempFolder is made, which removes the folders by which they are known.
void sweepSockets();

/// Exports a flat ODF file, that must lie in the folder, in the format of the extension (lower case, with its dot);
/// program is what findOffice() gave. Gives the path of the new file, in the same folder. Everything that LibreOffice
/// keeps goes into the folder too; its installation stays as it is. It may take so much processor time, rounded down to
/// seconds. Throws Failure(Helper), Failure(Limit) or Failure(CannotWrite).
std::string exportFile(
    const TempFolder &folder, const std::string &program, const std::string &sourcePath, std::string_view extension,
    int pageCount, std::chrono::milliseconds processorTime);

} // namespace quorra::office
