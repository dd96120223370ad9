// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/picture_writer.h"

#include <algorithm>
#include <array>

namespace quorra {

namespace {

struct Row
{
    std::string_view extension;
    std::unique_ptr<PictureWriter> (*make)(OutputFile &, const PictureInfo &);
};

ByteSink sinkInto(OutputFile &file)
{
    return [&file](std::string_view bytes) { file.write(bytes); };
}

std::unique_ptr<PictureWriter> makePngFile(OutputFile &file, const PictureInfo &info)
{
    return makePngWriter(sinkInto(file), info);
}

std::unique_ptr<PictureWriter> makeJpegFile(OutputFile &file, const PictureInfo &info)
{
    return makeJpegWriter(sinkInto(file), info);
}

constexpr std::array<Row, 11> rows = {{
    {".png", makePngFile},
    {".jpeg", makeJpegFile},
    {".jpe", makeJpegFile},
    {".jpg", makeJpegFile},
    {".gif", makeGifWriter},
    {".bmp", makeBmpWriter},
    {".tga", makeTgaWriter},
    {".pnm", makePnmWriter},
    {".ppm", makePnmWriter},
    {".pgm", makePnmWriter},
    {".pbm", makePnmWriter},
}};

} // namespace

std::unique_ptr<PictureWriter> makePictureWriter(std::string_view extension, OutputFile &file, const PictureInfo &info)
{
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Row &each) { return each.extension == extension; });
    return row == rows.end() ? nullptr : row->make(file, info);
}

std::uint64_t bytesKeptPerPixel(std::string_view extension, ColourDepth depth)
{
    // Pixels and palette indices, and for colour the memory of the palette computation.
    const std::uint64_t ofGif = depth == ColourDepth::Colour ? 8 : 2;
    return extension == ".gif" ? ofGif : 0;
}

} // namespace quorra
