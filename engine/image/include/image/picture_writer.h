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

/// The properties of a picture file.
struct PictureInfo
{
    PictureSize size; ///< if the resolutions to record are 0, PNG and JPEG record none
    ColourDepth depth = ColourDepth::Colour;
};

/// Receives the bytes of a picture file in order, to write them to a file or to memory. Exceptions are passed on to the
/// caller of the writer.
using ByteSink = std::function<void(std::string_view)>;

/// JPEG compression settings. The defaults are for picture files.
struct JpegSettings
{
    int quality = 90;       ///< 0 to 100
    bool fullColour = true; ///< no chroma subsampling, which would blur coloured text
    bool ownTables = true;  ///< Huffman tables optimised for the picture: smaller, slower
};

/// Writes one picture from top to bottom. Throws Failure(CannotWrite), or what the sink throws; afterwards the writer
/// can only be destroyed. Does not commit the file.
class PictureWriter
{
public:
    virtual ~PictureWriter() = default;

    /// Adds the next rows. In total there must be as many rows as the picture is high.
    virtual void addRows(const Raster &rows) = 0;

    /// Call once, after the last row.
    virtual void finish() = 0;
};

/// Returns the writer for an extension (lower case) of a format with one picture per file; null for others. The writer
/// keeps a reference to the file.
std::unique_ptr<PictureWriter> makePictureWriter(std::string_view extension, OutputFile &file, const PictureInfo &info);

/// Returns how many bytes per pixel the writer of the extension buffers until the picture is finished; 0 if it writes
/// row by row.
std::uint64_t bytesKeptPerPixel(std::string_view extension, ColourDepth depth);

std::unique_ptr<PictureWriter> makePngWriter(ByteSink sink, const PictureInfo &info);
std::unique_ptr<PictureWriter>
makeJpegWriter(ByteSink sink, const PictureInfo &info, const JpegSettings &settings = {});
std::unique_ptr<PictureWriter> makeGifWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeBmpWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makeTgaWriter(OutputFile &file, const PictureInfo &info);
std::unique_ptr<PictureWriter> makePnmWriter(OutputFile &file, const PictureInfo &info);

} // namespace quorra
