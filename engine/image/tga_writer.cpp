// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/picture_writer.h"
#include "little_endian.h"

#include <string>

namespace quorra {

namespace {

constexpr std::uint32_t trueColour = 2;
constexpr std::uint32_t blackAndWhite = 3;
constexpr std::uint32_t topRowFirst = 0x20;
constexpr char white = '\xFF';

/// Truevision TGA, uncompressed. One bit per pixel is not a standard variant, so mono is stored as gray.
class TgaWriter : public PictureWriter
{
public:
    TgaWriter(OutputFile &file, const PictureInfo &info) : m_file(file)
    {
        const bool colour = info.depth == ColourDepth::Colour;
        std::string header;
        appendLittleEndian(header, 0, 2); // no identification, no colour map
        appendLittleEndian(header, colour ? trueColour : blackAndWhite, 1);
        header.append(9, '\0'); // colour map and origin
        appendLittleEndian(header, static_cast<std::uint32_t>(info.size.width), 2);
        appendLittleEndian(header, static_cast<std::uint32_t>(info.size.height), 2);
        appendLittleEndian(header, colour ? 24 : 8, 1);
        appendLittleEndian(header, topRowFirst, 1);
        m_file.write(header);
    }

    void addRows(const Raster &rows) override
    {
        for (int y = 0; y < rows.rows; ++y) {
            m_row.clear();
            appendRow(rows, rows.row(y));
            m_file.write(m_row);
        }
    }

    void finish() override
    {
        // The footer identifies version 2 of the format.
        m_file.write(std::string(8, '\0') + std::string("TRUEVISION-XFILE.") + '\0');
    }

private:
    void appendRow(const Raster &rows, const std::uint8_t *source)
    {
        for (int x = 0; x < rows.width; ++x) {
            if (rows.depth == ColourDepth::Colour) {
                const std::uint8_t *const pixel = source + std::ptrdiff_t{3} * x;
                for (const int part : {2, 1, 0}) {
                    m_row += static_cast<char>(pixel[part]);
                }
            } else if (rows.depth == ColourDepth::Gray) {
                m_row += static_cast<char>(source[x]);
            } else {
                m_row += (source[x / 8] >> (7 - x % 8) & 1) != 0 ? white : '\0';
            }
        }
    }

    OutputFile &m_file;
    std::string m_row;
};

} // namespace

std::unique_ptr<PictureWriter> makeTgaWriter(OutputFile &file, const PictureInfo &info)
{
    return std::make_unique<TgaWriter>(file, info);
}

} // namespace quorra
