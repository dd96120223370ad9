// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_rules.h"

#include "base/failure.h"
#include "platform/limits.h"

#include <array>
#include <cmath>
#include <string>

namespace quorra {

namespace {

constexpr double PointsPerInch = 72;

constexpr int FaxColumns = 1728;
constexpr int FaxXRes = 204;
constexpr int FaxYResLow = 98;
constexpr int FaxYResFine = 196;

struct FixedDepth
{
    std::string_view extension;
    ColourDepth depth;
};

constexpr std::array<FixedDepth, 3> FixedDepths = {{
    {".pbm", ColourDepth::Mono},
    {".pgm", ColourDepth::Gray},
    {".ppm", ColourDepth::Colour},
}};

bool isTiff(std::string_view extension)
{
    return extension == ".tif" || extension == ".tiff";
}

bool isJpeg(std::string_view extension)
{
    return extension == ".jpg" || extension == ".jpeg" || extension == ".jpe";
}

bool isClassF(const Options &options)
{
    return options.compression == Compression::ClassFLow || options.compression == Compression::ClassFFine;
}

/// A fraction of a pixel counts as a pixel. Anything past the limit gives one more than the limit.
int pixels(double length)
{
    const double whole = std::ceil(length);
    return !(whole >= 1) ? 1 : whole > limits::LargestSide ? limits::LargestSide + 1 : static_cast<int>(whole);
}

PictureSize byResolution(double xres, double yres, double pageWidth, double pageHeight)
{
    return {
        pixels(pageWidth * xres / PointsPerInch), pixels(pageHeight * yres / PointsPerInch), xres, yres, xres, yres};
}

PictureSize bySize(const Options &options, double pageWidth, double pageHeight)
{
    const double byWidth = options.width ? *options.width * PointsPerInch / pageWidth : 0;
    const double byHeight = options.height ? *options.height * PointsPerInch / pageHeight : 0;
    // The side that follows from the other must not grow by a pixel that only rounding made.
    constexpr double RoundingNoise = 1e-6;
    PictureSize size = byResolution(
        options.width ? byWidth : byHeight, options.height ? byHeight : byWidth, pageWidth - RoundingNoise,
        pageHeight - RoundingNoise);
    size.width = options.width.value_or(size.width);
    size.height = options.height.value_or(size.height);
    if (options.xres || options.yres) {
        size.xtag = options.horizontalResolution(PictureResolution);
        size.ytag = options.verticalResolution(PictureResolution);
    }
    return size;
}

/// A fax line has a fixed length: the page is scaled to it, its shape kept.
PictureSize forFax(Compression compression, double pageWidth, double pageHeight)
{
    const int yres = compression == Compression::ClassFLow ? FaxYResLow : FaxYResFine;
    const double xres = FaxColumns * PointsPerInch / pageWidth;
    PictureSize size = byResolution(xres, xres * yres / FaxXRes, pageWidth, pageHeight);
    size.width = FaxColumns;
    size.xtag = FaxXRes;
    size.ytag = yres;
    return size;
}

} // namespace

ColourDepth pictureDepth(const Options &options, std::string_view extension)
{
    for (const FixedDepth &each : FixedDepths)
        if (each.extension == extension)
            return each.depth;
    if (isTiff(extension) && options.compression && isFaxCompression(*options.compression))
        return ColourDepth::Mono;
    if (isJpeg(extension) && options.colourDepth == ColourDepth::Mono)
        return ColourDepth::Gray;
    return options.colourDepth;
}

PictureSize pictureSize(const Options &options, int page, double pageWidth, double pageHeight)
{
    PictureSize size;
    if (isClassF(options) && isTiff(outputExtension(options.outputPath)))
        size = forFax(*options.compression, pageWidth, pageHeight);
    else if (options.width || options.height)
        size = bySize(options, pageWidth, pageHeight);
    else
        size = byResolution(
            options.horizontalResolution(PictureResolution), options.verticalResolution(PictureResolution), pageWidth,
            pageHeight);
    if (size.width > limits::LargestSide || size.height > limits::LargestSide ||
        std::int64_t{size.width} * size.height > limits::LargestArea)
        throw Failure(
            ExitStatus::Limit, "page " + std::to_string(page) + " would be more than " +
                                   std::to_string(limits::LargestSide) + " pixels long or " +
                                   std::to_string(limits::LargestArea / 1'000'000) +
                                   " million in all: ask for a lower resolution");
    return size;
}

} // namespace quorra
