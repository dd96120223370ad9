// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/picture_writer.h"

#include "base/units.h"
#include "little_endian.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace quorra {

namespace {

constexpr std::uint32_t fileHeaderBytes = 14;
constexpr std::uint32_t infoHeaderBytes = 40;

int bitsPerPixel(ColourDepth depth)
{
    return depth == ColourDepth::Colour ? 24 : depth == ColourDepth::Gray ? 8 : 1;
}

std::uint32_t perMetre(double perInch)
{
    return static_cast<std::uint32_t>(std::lround(perInch * inchesPerMetre));
}

/// Windows bitmap, uncompressed. Rows are stored from bottom to top: each is written at its own offset.
class BmpWriter : public PictureWriter
{
public:
    BmpWriter(OutputFile &file, const PictureInfo &info)
        : m_file(file)
        , m_stride((rowBytes(info.depth, info.size.width) + 3) / 4 * 4)
        , m_left(info.size.height)
    {
        const std::uint32_t colours = info.depth == ColourDepth::Colour ? 0 : 1U << bitsPerPixel(info.depth);
        const auto height = static_cast<std::uint32_t>(info.size.height);
        const auto pixelBytes = static_cast<std::uint32_t>(m_stride * height);
        m_pixels = fileHeaderBytes + infoHeaderBytes + colours * 4;
        std::string header = "BM";
        appendLittleEndian(header, m_pixels + pixelBytes, 4);
        appendLittleEndian(header, 0, 4);
        appendLittleEndian(header, m_pixels, 4);
        appendLittleEndian(header, infoHeaderBytes, 4);
        appendLittleEndian(header, static_cast<std::uint32_t>(info.size.width), 4);
        appendLittleEndian(header, height, 4);
        appendLittleEndian(header, 1, 2);
        appendLittleEndian(header, static_cast<std::uint32_t>(bitsPerPixel(info.depth)), 2);
        appendLittleEndian(header, 0, 4); // not compressed
        appendLittleEndian(header, pixelBytes, 4);
        appendLittleEndian(header, perMetre(info.size.xtag), 4);
        appendLittleEndian(header, perMetre(info.size.ytag), 4);
        appendLittleEndian(header, colours, 4);
        appendLittleEndian(header, 0, 4);
        for (std::uint32_t i = 0; i < colours; ++i) {
            appendLittleEndian(header, 0x010101 * (i * 255 / (colours - 1)), 4);
        }
        m_file.write(header);
    }

    void addRows(const Raster &rows) override
    {
        const std::size_t bytes = rowBytes(rows.depth, rows.width);
        m_block.assign(m_stride * static_cast<std::size_t>(rows.rows), '\0');
        for (int y = 0; y < rows.rows; ++y) {
            char *const target = m_block.data() + m_stride * static_cast<std::size_t>(rows.rows - 1 - y);
            std::copy_n(rows.row(y), bytes, target);
            if (rows.depth == ColourDepth::Colour) {
                for (std::size_t x = 0; x < bytes; x += 3) {
                    std::swap(target[x], target[x + 2]);
                }
            }
        }
        m_left -= rows.rows;
        m_file.writeAt(m_pixels + m_stride * static_cast<std::size_t>(m_left), m_block);
    }

    void finish() override {}

private:
    OutputFile &m_file;
    std::size_t m_stride;
    int m_left; ///< rows that have not been written yet
    std::uint32_t m_pixels = 0;
    std::string m_block;
};

} // namespace

std::unique_ptr<PictureWriter> makeBmpWriter(OutputFile &file, const PictureInfo &info)
{
    return std::make_unique<BmpWriter>(file, info);
}

} // namespace quorra
