// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace quorra {

/// A private folder (mode 0700) under $TMPDIR, or under /tmp where LibreOffice cannot use that: its path has ; or |, or
/// letters outside ASCII where the locale is not one of UTF-8.
/// The destructor removes it with everything in it; the constructor removes folders left by killed runs.
class TempFolder
{
public:
    /// Throws Failure(CannotWrite).
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    /// Absolute path without a trailing slash.
    const std::string &path() const { return m_path; }

private:
    std::string m_path;
    int m_lock = -1;
};

/// Returns the paths of temporary folders left by killed runs. Never throws.
std::vector<std::string> abandonedTempFolders();

/// Removes the temporary folders left by killed runs. Never throws.
void sweepTempFolders();

/// Removes this process's temporary folder if it contains no other folder. For the handler of a fatal signal.
void removeTempFolderNow();

} // namespace quorra
