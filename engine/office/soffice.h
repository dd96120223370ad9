// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// The name that LibreOffice gives its socket in the system's temporary folder for this profile (a file: address).
std::string socketPath(const std::string &profileAddress);

/// Removes the sockets that LibreOffice left there when its engine was killed. To be called before a TempFolder is
/// made, which removes the folders by which they are known.
void sweepSockets();

/// Exports a flat ODF file, that must lie in the folder, in the format of the extension (lower case, with its dot);
/// program is what findOffice() gave. Gives the path of the new file, in the same folder. Throws Failure(Helper) or
/// Failure(Limit).
std::string exportFile(
    const TempFolder &folder, const std::string &program, const std::string &sourcePath, std::string_view extension,
    int pageCount);

} // namespace quorra::office
