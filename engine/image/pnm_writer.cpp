// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/picture_writer.h"

#include <algorithm>
#include <string>

namespace quorra {

namespace {

/// Portable bitmap, graymap or pixmap, depending on the depth; binary variant.
class PnmWriter : public PictureWriter
{
public:
    PnmWriter(OutputFile &file, const PictureInfo &info) : m_file(file), m_row(rowBytes(info.depth, info.size.width), 0)
    {
        const char *const magic = info.depth == ColourDepth::Mono   ? "P4"
                                  : info.depth == ColourDepth::Gray ? "P5"
                                                                    : "P6";
        std::string header =
            std::string(magic) + "\n" + std::to_string(info.size.width) + " " + std::to_string(info.size.height) + "\n";
        if (info.depth != ColourDepth::Mono) {
            header += "255\n";
        }
        m_file.write(header);
    }

    void addRows(const Raster &rows) override
    {
        for (int y = 0; y < rows.rows; ++y) {
            const std::uint8_t *const source = rows.row(y);
            if (rows.depth == ColourDepth::Mono) {
                // In this format black is 1.
                std::transform(source, source + m_row.size(), m_row.begin(), [](std::uint8_t bits) {
                    return static_cast<char>(~bits);
                });
            } else {
                std::copy(source, source + m_row.size(), m_row.begin());
            }
            m_file.write(m_row);
        }
    }

    void finish() override {}

private:
    OutputFile &m_file;
    std::string m_row;
};

} // namespace

std::unique_ptr<PictureWriter> makePnmWriter(OutputFile &file, const PictureInfo &info)
{
    return std::make_unique<PnmWriter>(file, info);
}

} // namespace quorra
