// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"

#include <string>
#include <string_view>

namespace quorra {

/// A file that appears under its name only when it is whole: a kill at any moment, or a failure, leaves whatever stood
/// there before. All functions throw Failure(CannotWrite).
class OutputFile
{
public:
    /// Begins a file that will be `path`; its folder must exist.
    explicit OutputFile(std::string path);
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Appends; buffered.
    void write(std::string_view bytes);

    /// Writes at a place counted from the file's begin; what follows with write() is not moved by it.
    void writeAt(std::size_t position, std::string_view bytes);

    /// Appends the whole content of another file.
    void writeFile(const std::string &sourcePath);

    /// For libraries that write by themselves: what was written so far is flushed first. The descriptor stays this
    /// object's.
    int descriptor();

    /// Gives the file its name, replacing what stood there, once its content is on the disk. Nothing may be written
    /// afterwards. The name itself is sure to outlast a power cut only after syncFolderOf().
    void commit();

    const std::string &path() const { return m_path; }

private:
    void flush();
    void append(std::string_view bytes);

    std::string m_path;
    platform::UnnamedFile m_file;
    std::string m_buffer;
};

/// Puts the names in the folder of this path on the disk; to be called once after the last file of a run. Throws
/// Failure(CannotWrite).
void syncFolderOf(const std::string &path);

} // namespace quorra
