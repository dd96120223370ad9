// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/output_file.h"

#include "base/failure.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace quorra {

namespace {

constexpr std::size_t bufferBytes = 64 * 1024;

[[noreturn]] void fail(const std::string &path, int error)
{
    throw Failure(ExitStatus::CannotWrite, "cannot write " + path + ": " + std::strerror(error));
}

/// Calls `writeSome`, which gets the remaining bytes and returns how many it has written, until none remain.
template <typename WriteSome>
void writeAll(std::string_view bytes, const std::string &path, WriteSome writeSome)
{
    while (!bytes.empty()) {
        const ssize_t written = writeSome(bytes);
        if (written < 0 && errno != EINTR) {
            fail(path, errno);
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

} // namespace

OutputFile::OutputFile(std::string path) : m_path(std::move(path))
{
    if (m_path.find('/') == std::string::npos) {
        m_path = "./" + m_path;
    }
    const std::string folder = folderOf(m_path);
    m_file = platform::beginFile(folder);
    if (m_file.descriptor < 0) {
        fail(m_path, errno);
    }
}

OutputFile::~OutputFile()
{
    if (m_file.descriptor < 0) {
        return;
    }
    if (!m_file.partPath.empty()) {
        unlink(m_file.partPath.c_str());
    }
    close(m_file.descriptor);
}

void OutputFile::write(std::string_view bytes)
{
    if (m_buffer.size() + bytes.size() > bufferBytes) {
        flush();
    }
    if (bytes.size() > bufferBytes) {
        append(bytes);
    } else {
        m_buffer.append(bytes);
    }
}

void OutputFile::writeAt(std::size_t position, std::string_view bytes)
{
    flush();
    writeAll(bytes, m_path, [this, &position](std::string_view rest) {
        const ssize_t written = pwrite(m_file.descriptor, rest.data(), rest.size(), static_cast<off_t>(position));
        position += written < 0 ? 0 : static_cast<std::size_t>(written);
        return written;
    });
}

void OutputFile::writeFile(const std::string &sourcePath)
{
    const int source = open(sourcePath.c_str(), O_RDONLY | O_CLOEXEC);
    if (source < 0) {
        fail(m_path, errno);
    }
    std::array<char, bufferBytes> block;
    ssize_t got = 0;
    while ((got = read(source, block.data(), block.size())) > 0) {
        write({block.data(), static_cast<std::size_t>(got)});
    }
    const int error = errno;
    close(source);
    if (got < 0) {
        fail(m_path, error);
    }
}

int OutputFile::descriptor()
{
    flush();
    return m_file.descriptor;
}

void OutputFile::commit()
{
    flush();
    // Some file systems report failed writes only here or when a descriptor is closed, and this one is still needed.
    if (!platform::syncFile(m_file.descriptor)) {
        fail(m_path, errno);
    }
    const int duplicate = dup(m_file.descriptor);
    if (duplicate < 0 || close(duplicate) != 0) {
        fail(m_path, errno);
    }
    if (!platform::nameFile(m_file, m_path)) {
        fail(m_path, errno);
    }
    close(std::exchange(m_file.descriptor, -1));
}

void OutputFile::flush()
{
    append(m_buffer);
    m_buffer.clear();
}

void OutputFile::append(std::string_view bytes)
{
    writeAll(
        bytes, m_path, [this](std::string_view rest) { return ::write(m_file.descriptor, rest.data(), rest.size()); });
}

std::string folderOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

void syncFolderOf(const std::string &path)
{
    const int folder = open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder that can be written but not read cannot be synced.
    if (folder < 0) {
        return;
    }
    // Some file systems cannot sync a folder.
    const bool synced = fsync(folder) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
    const int error = errno;
    close(folder);
    if (!synced) {
        fail(path, error);
    }
}

} // namespace quorra
