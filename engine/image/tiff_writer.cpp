// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/tiff_writer.h"

#include "base/failure.h"

#include <tiffio.h>

#include <algorithm>
#include <cstdarg>
#include <memory>
#include <vector>

#include <unistd.h>

namespace quorra {

namespace {

constexpr std::size_t stripBytes = 256 * 1024;
constexpr int horizontalDifferences = 2;

[[noreturn]] void fail(const OutputFile &file)
{
    throw Failure(ExitStatus::CannotWrite, "cannot write " + file.path());
}

std::uint16_t tiffCode(Compression compression)
{
    switch (compression) {
    case Compression::None:
        return COMPRESSION_NONE;
    case Compression::Group3OneD:
    case Compression::Group3TwoD:
    case Compression::ClassFLow:
    case Compression::ClassFFine:
        return COMPRESSION_CCITTFAX3;
    case Compression::Group4:
        return COMPRESSION_CCITTFAX4;
    case Compression::PackBits:
        return COMPRESSION_PACKBITS;
    case Compression::Lzw:
        break;
    }
    return COMPRESSION_LZW;
}

std::uint32_t rowsPerStrip(Compression compression, const PictureInfo &info)
{
    const auto height = static_cast<std::uint32_t>(info.size.height);
    // Fax readers expect a page as a single strip.
    if (isFaxCompression(compression)) {
        return height;
    }
    const std::size_t rows = stripBytes / rowBytes(info.depth, info.size.width);
    return std::clamp<std::uint32_t>(static_cast<std::uint32_t>(rows), 1, height);
}

/// Discards messages: failures are detected from return values.
int ignoreMessage(TIFF *, void *, const char *, const char *, va_list)
{
    constexpr int notForOtherHandlers = 1;
    return notForOtherHandlers;
}

/// Takes ownership of the descriptor, unless it fails and returns null. Threads write files in parallel, so the message
/// handlers are set per file and not per process.
TIFF *open(int descriptor, const std::string &path)
{
    const std::unique_ptr<TIFFOpenOptions, void (*)(TIFFOpenOptions *)> options(
        TIFFOpenOptionsAlloc(), TIFFOpenOptionsFree);
    if (!options) {
        return nullptr;
    }
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), ignoreMessage, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), ignoreMessage, nullptr);
    return TIFFFdOpenExt(descriptor, path.c_str(), "w", options.get());
}

} // namespace

TiffFile::TiffFile(OutputFile &file, Compression compression, int pageCount)
    : m_file(file)
    , m_compression(compression)
    , m_pageCount(pageCount)
    , m_tiff(nullptr)
{
    const int own = dup(file.descriptor());
    m_tiff = own < 0 ? nullptr : open(own, file.path());
    if (!m_tiff && own >= 0) {
        close(own);
    }
    if (!m_tiff) {
        fail(file);
    }
}

TiffFile::~TiffFile()
{
    TIFFClose(m_tiff);
}

void TiffFile::beginPage(const PictureInfo &info)
{
    const bool mono = info.depth == ColourDepth::Mono;
    const bool colour = info.depth == ColourDepth::Colour;
    TIFFSetField(m_tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(info.size.width));
    TIFFSetField(m_tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(info.size.height));
    TIFFSetField(m_tiff, TIFFTAG_BITSPERSAMPLE, mono ? 1 : 8);
    TIFFSetField(m_tiff, TIFFTAG_SAMPLESPERPIXEL, colour ? 3 : 1);
    TIFFSetField(m_tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(m_tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(
        m_tiff, TIFFTAG_PHOTOMETRIC,
        mono     ? PHOTOMETRIC_MINISWHITE
        : colour ? PHOTOMETRIC_RGB
                 : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(m_tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(m_tiff, TIFFTAG_XRESOLUTION, info.size.xtag);
    TIFFSetField(m_tiff, TIFFTAG_YRESOLUTION, info.size.ytag);
    TIFFSetField(m_tiff, TIFFTAG_SOFTWARE, "Qtminw");
    if (m_pageCount > 1) {
        TIFFSetField(m_tiff, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
        TIFFSetField(m_tiff, TIFFTAG_PAGENUMBER, m_page, m_pageCount);
    }
    setCompression(info);
    TIFFSetField(m_tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip(m_compression, info));
    m_row = 0;
}

void TiffFile::setCompression(const PictureInfo &info)
{
    TIFFSetField(m_tiff, TIFFTAG_COMPRESSION, tiffCode(m_compression));
    if (m_compression == Compression::Lzw && info.depth != ColourDepth::Mono) {
        TIFFSetField(m_tiff, TIFFTAG_PREDICTOR, horizontalDifferences);
    }
    if (m_compression == Compression::Group3TwoD) {
        TIFFSetField(m_tiff, TIFFTAG_GROUP3OPTIONS, GROUP3OPT_2DENCODING);
    }
    if (m_compression == Compression::ClassFLow || m_compression == Compression::ClassFFine) {
        TIFFSetField(m_tiff, TIFFTAG_GROUP3OPTIONS, GROUP3OPT_FILLBITS);
    }
}

void TiffFile::addRows(const Raster &rows)
{
    const std::size_t bytes = rowBytes(rows.depth, rows.width);
    // The library may modify the row.
    std::vector<std::uint8_t> row(bytes);
    for (int y = 0; y < rows.rows; ++y) {
        const std::uint8_t *const source = rows.row(y);
        if (rows.depth == ColourDepth::Mono) {
            std::transform(source, source + bytes, row.begin(), [](std::uint8_t bits) {
                return static_cast<std::uint8_t>(~bits);
            });
        } else {
            std::copy(source, source + bytes, row.begin());
        }
        if (TIFFWriteScanline(m_tiff, row.data(), m_row++, 0) < 0) {
            fail(m_file);
        }
    }
}

void TiffFile::endPage()
{
    if (TIFFWriteDirectory(m_tiff) == 0) {
        fail(m_file);
    }
    ++m_page;
}

} // namespace quorra
