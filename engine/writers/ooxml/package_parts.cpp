// SPDX-License-Identifier: GPL-3.0-or-later
#include "ooxml/package_parts.h"

#include "base/failure.h"

#include <zip.h>

#include <deque>
#include <memory>

namespace quorra::office {

namespace {

struct Closer
{
    void operator()(zip_t *archive) const { zip_discard(archive); }
    void operator()(zip_file_t *file) const { zip_fclose(file); }
};

using Archive = std::unique_ptr<zip_t, Closer>;

[[noreturn]] void failToWrite(zip_t *archive)
{
    throw Failure(ExitStatus::CannotWrite, std::string("cannot change the exported file: ") + zip_strerror(archive));
}

[[noreturn]] void failToRead()
{
    throw Failure(ExitStatus::Helper, "the file that LibreOffice wrote is damaged");
}

QByteArray contentOf(zip_t *archive, zip_uint64_t index, zip_uint64_t size)
{
    const std::unique_ptr<zip_file_t, Closer> file(zip_fopen_index(archive, index, 0));
    QByteArray content(static_cast<qsizetype>(size), Qt::Uninitialized);
    char more = 0; // the end of the part, at which its checksum is compared
    if (!file || zip_fread(file.get(), content.data(), size) != static_cast<zip_int64_t>(size) ||
        zip_fread(file.get(), &more, 1) != 0) {
        failToRead();
    }
    return content;
}

} // namespace

void changeParts(const std::string &path, const PartChange &change)
{
    int code = 0;
    Archive archive(zip_open(path.c_str(), 0, &code));
    if (!archive) {
        return;
    }
    std::deque<QByteArray> contents; // until the archive is written
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t facts;
        if (zip_stat_index(archive.get(), index, 0, &facts) != 0) {
            failToRead();
        }
        const QString name = QString::fromUtf8(facts.name);
        if (!name.endsWith(QLatin1String(".xml"))) {
            continue;
        }
        std::optional<QByteArray> changed = change(name, contentOf(archive.get(), index, facts.size));
        if (!changed) {
            continue;
        }
        const QByteArray &content = contents.emplace_back(std::move(*changed));
        zip_source_t *source =
            zip_source_buffer(archive.get(), content.constData(), static_cast<zip_uint64_t>(content.size()), 0);
        if (!source) {
            failToWrite(archive.get());
        }
        if (zip_file_replace(archive.get(), index, source, 0) != 0) {
            zip_source_free(source);
            failToWrite(archive.get());
        }
        zip_file_set_mtime(archive.get(), index, facts.mtime, 0);
    }
    if (zip_close(archive.get()) != 0) {
        failToWrite(archive.get());
    }
    static_cast<void>(archive.release()); // closed
}

} // namespace quorra::office
