// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace quorra {

/// A private folder (mode 0700) under $TMPDIR, or under /tmp where LibreOffice cannot use that (its path holds ; or |).
/// The destructor removes it with everything in it; the constructor removes folders left by killed runs.
class TempFolder
{
public:
    /// Throws Failure(CannotWrite).
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    /// Absolute path, no slash at its end.
    const std::string &path() const { return m_path; }

private:
    std::string m_path;
    int m_lock = -1;
};

/// Paths of the temporary folders whose runs no longer live. Never throws.
std::vector<std::string> abandonedTempFolders();

/// Removes those. Never throws.
void sweepTempFolders();

/// Removes this process's temporary folder if it has no folder in it. For the handler of a fatal signal.
void removeTempFolderNow();

} // namespace quorra
