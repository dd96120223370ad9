// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"

#include <string>
#include <string_view>

namespace quorra {

/// A file that gets its name only when it is complete: if the process is killed or fails, an existing file of that name
/// is unchanged. All functions throw Failure(CannotWrite).
class OutputFile
{
public:
    /// Starts a file that will be named `path`; its folder must exist.
    explicit OutputFile(std::string path);
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Appends; buffered.
    void write(std::string_view bytes);

    /// Writes at an offset from the start of the file. Does not affect where write() appends.
    void writeAt(std::size_t position, std::string_view bytes);

    /// Appends the contents of another file.
    void writeFile(const std::string &sourcePath);

    /// For libraries that write to a descriptor: flushes buffered data first. The descriptor remains owned by this
    /// object.
    int descriptor();

    /// Syncs the contents to disk and gives the file its name, replacing an existing file. Nothing can be written
    /// afterwards. The name survives a power failure only after syncFolderOf().
    void commit();

    const std::string &path() const { return m_path; }

private:
    void flush();
    void append(std::string_view bytes);

    std::string m_path;
    platform::UnnamedFile m_file;
    std::string m_buffer;
};

/// Returns the folder that the path is in: "." for a plain name.
std::string folderOf(const std::string &path);

/// Syncs the names in the folder of this path to disk. Call it once, after the last file of a run. Throws
/// Failure(CannotWrite).
void syncFolderOf(const std::string &path);

} // namespace quorra
