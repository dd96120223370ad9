// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "image/picture_size.h"
#include "image/raster.h"
#include "platform/output_file.h"

#include <functional>
#include <memory>
#include <string_view>

namespace quorra {

/// What a picture file is to hold.
struct PictureInfo
{
    PictureSize size; ///< without resolutions to record, PNG and JPEG record none
    ColourDepth depth = ColourDepth::Colour;
};

/// Takes the bytes of a picture file in their order: into a file, into memory. What it throws reaches the writer's
/// caller.
using ByteSink = std::function<void(std::string_view)>;

/// How a JPEG picture is packed. As it stands here: for pictures that are files of their own.
struct JpegSettings
{
    int quality = 90;       ///< 0 to 100
    bool fullColour = true; ///< colours at full resolution: coloured text suffers at half of it
    bool ownTables = true;  ///< code tables made for the picture: smaller, slower
};

/// Writes one picture from the top row down. Failures are thrown as Failure(CannotWrite), and what a sink throws as it
/// is; afterwards the writer can only be destroyed. A file is not committed.
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

/// Bytes that the extension's writer keeps for each pixel until the picture is finished; 0 for those that write row by
/// row.
std::uint64_t bytesKeptPerPixel(std::string_view extension, ColourDepth depth);

std::unique_ptr<PictureWriter> makePngWriter(ByteSink sink, const PictureInfo &info);
std::unique_ptr<PictureWriter>
makeJpegWriter(ByteSink sink, const PictureInfo &info, const JpegSettings &settings = {});
std::unique_ptr<PictureWriter> makeGifWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeBmpWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeTgaWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makePnmWriter(OutputFile &file, const PictureInfo &info);

} // namespace quorra
