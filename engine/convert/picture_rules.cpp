// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_rules.h"

#include "base/failure.h"
#include "base/units.h"
#include "platform/limits.h"

#include <array>
#include <cmath>
#include <string>

namespace quorra {

namespace {

constexpr int faxColumns = 1728;
constexpr int faxXRes = 204;
constexpr int faxYResLow = 98;
constexpr int faxYResFine = 196;

struct FixedDepth
{
    std::string_view extension;
    ColourDepth depth;
};

constexpr std::array<FixedDepth, 3> fixedDepths = {{
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

/// Rounds up to whole pixels. Values beyond the limit are reduced to one more than the limit.
int pixels(double length)
{
    const double whole = std::ceil(length);
    return !(whole >= 1) ? 1 : whole > limits::largestSide ? limits::largestSide + 1 : static_cast<int>(whole);
}

PictureSize byResolution(double xres, double yres, double pageWidth, double pageHeight)
{
    return {
        pixels(pageWidth * xres / pointsPerInch), pixels(pageHeight * yres / pointsPerInch), xres, yres, xres, yres};
}

PictureSize bySize(const Options &options, double pageWidth, double pageHeight)
{
    const double byWidth = options.width ? *options.width * pointsPerInch / pageWidth : 0;
    const double byHeight = options.height ? *options.height * pointsPerInch / pageHeight : 0;
    // The side computed from the other one must not grow by a pixel because of rounding errors.
    constexpr double roundingNoise = 1e-6;
    PictureSize size = byResolution(
        options.width ? byWidth : byHeight, options.height ? byHeight : byWidth, pageWidth - roundingNoise,
        pageHeight - roundingNoise);
    size.width = options.width.value_or(size.width);
    size.height = options.height.value_or(size.height);
    if (options.xres || options.yres) {
        size.xtag = options.horizontalResolution(pictureResolution);
        size.ytag = options.verticalResolution(pictureResolution);
    }
    return size;
}

/// A fax line has a fixed length: the page is scaled to it proportionally.
PictureSize forFax(Compression compression, double pageWidth, double pageHeight)
{
    const int yres = compression == Compression::ClassFLow ? faxYResLow : faxYResFine;
    const double xres = faxColumns * pointsPerInch / pageWidth;
    PictureSize size = byResolution(xres, xres * yres / faxXRes, pageWidth, pageHeight);
    size.width = faxColumns;
    size.xtag = faxXRes;
    size.ytag = yres;
    return size;
}

} // namespace

ColourDepth pictureDepth(const Options &options, std::string_view extension)
{
    for (const FixedDepth &each : fixedDepths) {
        if (each.extension == extension) {
            return each.depth;
        }
    }
    if (isTiff(extension) && options.compression && isFaxCompression(*options.compression)) {
        return ColourDepth::Mono;
    }
    if (isJpeg(extension) && options.colourDepth == ColourDepth::Mono) {
        return ColourDepth::Gray;
    }
    return options.colourDepth;
}

PictureSize pictureSize(const Options &options, int page, double pageWidth, double pageHeight)
{
    PictureSize size;
    if (isClassF(options) && isTiff(outputExtension(options.outputPath))) {
        size = forFax(*options.compression, pageWidth, pageHeight);
    } else if (options.width || options.height) {
        size = bySize(options, pageWidth, pageHeight);
    } else {
        size = byResolution(
            options.horizontalResolution(pictureResolution), options.verticalResolution(pictureResolution), pageWidth,
            pageHeight);
    }
    if (size.width > limits::largestSide || size.height > limits::largestSide ||
        std::int64_t{size.width} * size.height > limits::largestArea) {
        throw Failure(
            ExitStatus::Limit, "page " + std::to_string(page) + " would exceed " + std::to_string(limits::largestSide) +
                                   " pixels per side or " + std::to_string(limits::largestArea / 1'000'000) +
                                   " million pixels in total: use a lower resolution");
    }
    return size;
}

PictureQuality embeddedQuality(const Options &options)
{
    const bool own = options.colourDepth == ColourDepth::Colour && !options.xres && !options.yres;
    return {
        options.colourDepth, static_cast<double>(options.horizontalResolution(embeddedResolution)),
        static_cast<double>(options.verticalResolution(embeddedResolution)), own};
}

} // namespace quorra
