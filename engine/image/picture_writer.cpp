// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/image/picture_writer.h"

#include <algorithm>
#include <array>

namespace quorra {

namespace {

struct Row
{
    std::string_view extension;
    std::unique_ptr<PictureWriter> (*make)(OutputFile &, const PictureInfo &);
};

constexpr std::array<Row, 11> Rows = {{
    {".png", makePngWriter},
    {".jpeg", makeJpegWriter},
    {".jpe", makeJpegWriter},
    {".jpg", makeJpegWriter},
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
        std::find_if(Rows.begin(), Rows.end(), [&](const Row &each) { return each.extension == extension; });
    return row == Rows.end() ? nullptr : row->make(file, info);
}

} // namespace quorra
