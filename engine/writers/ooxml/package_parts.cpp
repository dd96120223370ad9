// SPDX-License-Identifier: GPL-3.0-or-later
#include "ooxml/package_parts.h"

#include "base/failure.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <cstdio>
#include <map>
#include <memory>

namespace quorra::office {

namespace {

constexpr uLong utf8Names = 1U << 11; // general purpose flag of an entry

struct Closer
{
    void operator()(void *archive) const { unzClose(archive); }
};

using Source = std::unique_ptr<void, Closer>;

[[noreturn]] void failToRead()
{
    throw Failure(ExitStatus::Helper, "the file that LibreOffice wrote is damaged");
}

[[noreturn]] void failToWrite()
{
    throw Failure(ExitStatus::CannotWrite, "cannot change the exported file");
}

/// Moves to the next entry of the archive. Returns whether there is one.
bool next(unzFile source)
{
    const int status = unzGoToNextFile(source);
    if (status != UNZ_OK && status != UNZ_END_OF_LIST_OF_FILE) {
        failToRead();
    }
    return status == UNZ_OK;
}

struct Entry
{
    std::string name;
    unz_file_info64 facts{};
};

Entry currentEntry(unzFile source)
{
    Entry entry;
    if (unzGetCurrentFileInfo64(source, &entry.facts, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) {
        failToRead();
    }
    entry.name.resize(entry.facts.size_filename);
    if (unzGetCurrentFileInfo64(
            source, nullptr, entry.name.data(), entry.facts.size_filename, nullptr, 0, nullptr, 0) != UNZ_OK) {
        failToRead();
    }
    return entry;
}

/// Returns `size` bytes of the current entry, which is open, and closes it.
QByteArray openContent(unzFile source, ZPOS64_T size)
{
    QByteArray content(static_cast<qsizetype>(size), Qt::Uninitialized);
    const int read = unzReadCurrentFile(source, content.data(), static_cast<unsigned>(size));
    // Closing compares the checksum.
    if (unzCloseCurrentFile(source) != UNZ_OK || read < 0 || static_cast<ZPOS64_T>(read) != size) {
        failToRead();
    }
    return content;
}

QByteArray contentOf(unzFile source, const Entry &entry)
{
    if (unzOpenCurrentFile(source) != UNZ_OK) {
        failToRead();
    }
    return openContent(source, entry.facts.uncompressed_size);
}

/// The current entry as it is stored, with its compression method and level.
struct StoredEntry
{
    int method = 0;
    int level = 0;
    QByteArray content;
};

StoredEntry storedContent(unzFile source, const Entry &entry)
{
    StoredEntry stored;
    if (unzOpenCurrentFile2(source, &stored.method, &stored.level, 1) != UNZ_OK) {
        failToRead();
    }
    stored.content = openContent(source, entry.facts.compressed_size);
    return stored;
}

/// Writes archives; removes an unfinished one.
class Target
{
public:
    explicit Target(std::string path)
        : m_path(std::move(path))
        , m_archive(zipOpen64(m_path.c_str(), APPEND_STATUS_CREATE))
    {
        if (!m_archive) {
            failToWrite();
        }
    }
    ~Target()
    {
        if (m_archive) {
            zipClose(m_archive, nullptr);
            std::remove(m_path.c_str());
        }
    }
    Target(const Target &) = delete;
    Target &operator=(const Target &) = delete;

    void add(const Entry &entry, const StoredEntry &stored)
    {
        write(entry, stored.content, stored.method, stored.level, true);
        check(zipCloseFileInZipRaw64(m_archive, entry.facts.uncompressed_size, entry.facts.crc));
    }

    void add(const Entry &entry, const QByteArray &content)
    {
        write(entry, content, Z_DEFLATED, Z_DEFAULT_COMPRESSION, false);
        check(zipCloseFileInZip(m_archive));
    }

    /// Puts the archive in the place of the file at `path`.
    void replace(const std::string &path)
    {
        const int status = zipClose(m_archive, nullptr);
        m_archive = nullptr;
        if (status != ZIP_OK || std::rename(m_path.c_str(), path.c_str()) != 0) {
            std::remove(m_path.c_str());
            failToWrite();
        }
    }

private:
    static void check(int status)
    {
        if (status != ZIP_OK) {
            failToWrite();
        }
    }

    void write(const Entry &entry, const QByteArray &content, int method, int level, bool stored)
    {
        zip_fileinfo times{};
        times.dosDate = entry.facts.dosDate;
        check(zipOpenNewFileInZip4_64(
            m_archive, entry.name.c_str(), &times, nullptr, 0, nullptr, 0, nullptr, method, level, stored ? 1 : 0,
            -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, nullptr, 0, entry.facts.version,
            entry.facts.flag & utf8Names, 0));
        check(zipWriteInFileInZip(m_archive, content.constData(), static_cast<unsigned>(content.size())));
    }

    std::string m_path;
    zipFile m_archive;
};

/// The new contents of the parts that change, by the names of their entries.
std::map<std::string, QByteArray> changedParts(unzFile source, const PartChange &change)
{
    std::map<std::string, QByteArray> changed;
    do {
        const Entry entry = currentEntry(source);
        const QString name = QString::fromStdString(entry.name);
        if (!name.endsWith(QLatin1String(".xml"))) {
            continue;
        }
        if (std::optional<QByteArray> content = change(name, contentOf(source, entry))) {
            changed.emplace(entry.name, std::move(*content));
        }
    } while (next(source));
    return changed;
}

} // namespace

void changeParts(const std::string &path, const PartChange &change)
{
    const Source source(unzOpen64(path.c_str()));
    if (!source || unzGoToFirstFile(source.get()) != UNZ_OK) {
        return;
    }
    const std::map<std::string, QByteArray> changed = changedParts(source.get(), change);
    if (changed.empty()) {
        return;
    }
    if (unzGoToFirstFile(source.get()) != UNZ_OK) {
        failToRead();
    }
    Target target(path + ".new");
    do {
        const Entry entry = currentEntry(source.get());
        const auto found = changed.find(entry.name);
        if (found == changed.end()) {
            target.add(entry, storedContent(source.get(), entry));
        } else {
            target.add(entry, found->second);
        }
    } while (next(source.get()));
    target.replace(path);
}

} // namespace quorra::office
