// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/picture_writer.h"
#include "image/tiff_compression.h"

#include <memory>

struct tiff;

namespace quorra {

/// Writes one or more pictures, each with its resolution, to a TIFF file. Throws Failure(CannotWrite). Does not commit
/// the file.
class TiffFile
{
public:
    /// `pageCount` is the number of pictures; if there is more than one, each records its page number.
    TiffFile(OutputFile &file, Compression compression, int pageCount);
    ~TiffFile();
    TiffFile(const TiffFile &) = delete;
    TiffFile &operator=(const TiffFile &) = delete;

    /// Starts the next picture.
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

/// Used if no compression is requested.
inline constexpr Compression defaultTiffCompression = Compression::Lzw;

} // namespace quorra
