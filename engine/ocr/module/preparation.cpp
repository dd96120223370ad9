// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/preparation.h"

#include "module/cleaning.h"
#include "module/orientation.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quorra::ocr {

namespace {

constexpr struct
{
    int leastSide = 24;                     ///< pixels: nothing can be read in a smaller picture
    int largestSide = 20'000;               ///< pixels
    std::int64_t largestArea = 250'000'000; ///< pixels
    std::int64_t workArea = 40'000'000;     ///< pixels of the prepared picture: a page of A2 at 300 dots per inch
    double target = 300;                    ///< dots per inch: Tesseract is made for it
    double lowTarget = 250;          ///< dots per inch to which low resolutions are enlarged: more only costs time
    double lowResolution = 140;      ///< dots per inch below which a picture is enlarged
    double highResolution = 400;     ///< dots per inch above which a picture is reduced
    double greatestScale = 4;        ///< enlarging more adds nothing
    double leastDotsPerInch = 40;    ///< less than that is a wrong statement
    double mostDotsPerInch = 2400;   ///< likewise
    double usualHeight = 11.7;       ///< inches, of a page whose resolution is unknown
    double analysisResolution = 220; ///< dots per inch above which half the resolution tells the direction of the lines
    double leastSkew = 0.15;         ///< degrees: Tesseract takes lines with less for level
} thresholds;

bool isReadable(const Raster &picture)
{
    return std::min(picture.width, picture.rows) >= thresholds.leastSide &&
           std::max(picture.width, picture.rows) <= thresholds.largestSide &&
           std::int64_t(picture.width) * picture.rows <= thresholds.largestArea;
}

double resolutionOf(const Raster &picture, double stated)
{
    if (stated >= thresholds.leastDotsPerInch && stated <= thresholds.mostDotsPerInch) {
        return stated;
    }
    return std::max(picture.width, picture.rows) / thresholds.usualHeight;
}

/// By how much to enlarge or reduce the picture.
double scaleFor(const Raster &picture, double dotsPerInch)
{
    double scale = 1;
    if (dotsPerInch < thresholds.lowResolution) {
        scale = std::min(thresholds.lowTarget / dotsPerInch, thresholds.greatestScale);
    } else if (dotsPerInch > thresholds.highResolution) {
        scale = thresholds.target / dotsPerInch;
    }
    const double area = double(picture.width) * picture.rows;
    return std::min(scale, std::sqrt(double(thresholds.workArea) / area));
}

PixPtr scaled(PIX *gray, double scale)
{
    const auto factor = static_cast<float>(scale);
    return checked(scale < 1 ? pixScaleAreaMap(gray, factor, factor) : pixScaleGrayLI(gray, factor, factor));
}

/// Sets what is derived from the gray picture.
void reduce(PreparedPicture &page, PIX *gray)
{
    page.small = checked(page.reduction == 2 ? pixScaleAreaMap2(gray) : pixClone(gray));
    page.dark = checked(pixThresholdToBinary(page.small.get(), darkThreshold(page.small.get())));
}

} // namespace

void turnUpsideDown(PreparedPicture &page)
{
    page.gray = rotatedByRightAngle(page.gray.get(), 180);
    page.frame.rotation = (page.frame.rotation + 180) % 360;
    reduce(page, page.gray.get());
}

PreparedPicture prepared(const Raster &picture, double dotsPerInch)
{
    PreparedPicture result;
    if (!isReadable(picture)) {
        return result;
    }
    const double resolution = resolutionOf(picture, dotsPerInch);
    PageFrame &frame = result.frame;
    frame.scale = scaleFor(picture, resolution);
    result.dotsPerInch = resolution * frame.scale;

    PixPtr gray = grayPix(picture);
    invertDarkPage(gray.get());
    if (PixPtr clean = withoutNoise(gray.get())) {
        gray = std::move(clean);
    }
    if (frame.scale != 1) {
        gray = scaled(gray.get(), frame.scale);
    }
    if (PixPtr even = withWhitePaper(gray.get())) {
        gray = std::move(even);
    }

    result.reduction = result.dotsPerInch > thresholds.analysisResolution ? 2 : 1;
    reduce(result, gray.get());
    frame.scale /= result.reduction;
    frame.width = pixGetWidth(result.small.get());
    frame.height = pixGetHeight(result.small.get());
    const LineDirection direction = lineDirectionOf(result.dark.get());
    if (std::abs(direction.skew) >= thresholds.leastSkew) {
        frame.skew = direction.skew;
        gray = rotatedBy(gray.get(), -direction.skew);
        reduce(result, gray.get());
    }
    const Upright upright = uprightOf(result.dark.get(), direction.sideways);
    result.upright = upright.certain;
    frame.rotation = upright.rotation;
    if (frame.rotation != 0) {
        gray = rotatedByRightAngle(gray.get(), 360 - frame.rotation);
        reduce(result, gray.get());
    }
    result.gray = std::move(gray);
    return result;
}

} // namespace quorra::ocr
