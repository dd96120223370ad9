// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/cli/picture_rules.h"
#include "engine/image/raster.h"
#include "engine/platform/output_file.h"

#include <memory>
#include <string_view>

namespace quorra {

/// What a picture file is to hold.
struct PictureInfo
{
    PictureSize size;
    ColourDepth depth = ColourDepth::Colour;
};

/// Writes one picture into a file, from the top row down. Failures are thrown as Failure(CannotWrite); the file is not
/// committed.
class PictureWriter
{
public:
    virtual ~PictureWriter() = default;

    /// The next rows. Together they must be as many as the picture is high.
    virtual void addRows(const Raster &rows) = 0;

    /// Call once, after the last row.
    virtual void finish() = 0;
};

/// The writer for an extension (lower case) of a format with one picture in a file; null for others. The writer keeps a
/// reference to the file.
std::unique_ptr<PictureWriter> makePictureWriter(std::string_view extension, OutputFile &file, const PictureInfo &info);

std::unique_ptr<PictureWriter> makePngWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeJpegWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeGifWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeBmpWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeTgaWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makePnmWriter(OutputFile &file, const PictureInfo &info);

} // namespace quorra
