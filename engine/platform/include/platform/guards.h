// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

/// What the kernel refuses to this process, so that a document that takes over a library can do little harm. Linux
/// only, and only in builds with the option QUORRA_GUARDS; elsewhere these functions do nothing.
namespace quorra::guards {

/// What is allowed with a file, or with a folder and everything in it.
enum class Access {
    Read,          ///< read files, list folders
    ReadWrite,     ///< as Read, and write to files that exist
    Execute,       ///< as Read, and execute files
    ChangeFiles,   ///< as ReadWrite, and create, replace and remove files
    ChangeAll,     ///< as ChangeFiles, and create and remove folders
    RemoveFolders, ///< remove empty folders
    Sockets,       ///< create sockets, remove files
};

/// Several rules can have the same path. Links in the path are followed; a rule whose path does not exist is left out.
struct FileRule
{
    Access access;
    std::string path;
};

using FileRules = std::vector<FileRule>;

void append(FileRules &rules, const FileRules &more);

/// Whether the process may start other programs, and its child processes may accept local connections.
enum class Programs {
    None,
    ByFileRules, ///< those that have an Execute rule
};

/// The guards that are in force.
struct Active
{
    int landlock = 0; ///< version of the kernel's Landlock; 0: not in force
    bool seccomp = false;
};

/// From now on, this process and its child processes can use only these files, and none of the system calls that the
/// engine does not need but an attacker would. It cannot be undone. Call it before other threads are started. What the
/// system does not support is left out.
Active lockIn(const FileRules &files, Programs programs);

/// Returns the active guards as text for the user: "Landlock 7, seccomp" or "none".
std::string describe(const Active &active);

/// File rules for a process that does not exist yet.
class PreparedRules
{
public:
    /// Without rules, enter() does nothing.
    explicit PreparedRules(const FileRules &files);
    ~PreparedRules();
    PreparedRules(const PreparedRules &) = delete;
    PreparedRules &operator=(const PreparedRules &) = delete;

    /// From now on, the calling process can use only these files, and only as its earlier rules allow.
    /// Async-signal-safe.
    void enter() const;

private:
    [[maybe_unused]] int m_descriptor = -1;
};

} // namespace quorra::guards
