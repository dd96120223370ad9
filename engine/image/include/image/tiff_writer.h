// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/picture_writer.h"
#include "image/tiff_compression.h"

#include <memory>

struct tiff;

namespace quorra {

/// Writes one or more pictures, each with its resolution, into one TIFF file. Failures are thrown as
/// Failure(CannotWrite); the file is not committed.
class TiffFile
{
public:
    /// `pageCount` pictures are to come; with more than one, each records its number.
    TiffFile(OutputFile &file, Compression compression, int pageCount);
    ~TiffFile();
    TiffFile(const TiffFile &) = delete;
    TiffFile &operator=(const TiffFile &) = delete;

    /// Begins the next picture.
    void beginPage(const PictureInfo &info);
    void addRows(const Raster &rows);
    void endPage();

private:
    void setCompression(const PictureInfo &info);

    OutputFile &m_file;
    Compression m_compression;
    int m_pageCount;
    int m_page = 0;
    std::uint32_t m_row = 0;
    struct tiff *m_tiff;
};

/// What stands in the file when nothing is asked.
inline constexpr Compression defaultTiffCompression = Compression::Lzw;

} // namespace quorra
