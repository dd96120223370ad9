// SPDX-License-Identifier: GPL-3.0-or-later
#include "paper_size.h"

#include "base/failure.h"

#include <cmath>

namespace quorra {

namespace {

constexpr double PointsPerInch = 72;
constexpr double LargestPaper = 14400; ///< points; 200 inches

int points(double length)
{
    if (!(length <= LargestPaper))
        throw Failure(ExitStatus::Limit, "the asked page is more than 200 inches long");
    return length < 1 ? 1 : static_cast<int>(std::lround(length));
}

} // namespace

std::optional<PaperSize> paperSize(const Options &options, double pageWidth, double pageHeight)
{
    if (!options.width && !options.height)
        return {};
    const double width = options.width.value_or(0) * PointsPerInch / options.horizontalResolution(PaperResolution);
    const double height = options.height.value_or(0) * PointsPerInch / options.verticalResolution(PaperResolution);
    return PaperSize{
        points(options.width ? width : height * pageWidth / pageHeight),
        points(options.height ? height : width * pageHeight / pageWidth)};
}

} // namespace quorra
