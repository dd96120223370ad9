// SPDX-License-Identifier: GPL-3.0-or-later
#include "paper_size.h"

#include "base/failure.h"
#include "base/units.h"

#include <cmath>

namespace quorra {

namespace {

constexpr double largestPaper = 14400; ///< points; 200 inches

int points(double length)
{
    if (!(length <= largestPaper)) {
        throw Failure(ExitStatus::Limit, "requested page size exceeds 200 inches");
    }
    return length < 1 ? 1 : static_cast<int>(std::lround(length));
}

} // namespace

std::optional<PaperSize> paperSize(const Options &options, double pageWidth, double pageHeight)
{
    if (!options.width && !options.height) {
        return {};
    }
    const double width = options.width.value_or(0) * pointsPerInch / options.horizontalResolution(paperResolution);
    const double height = options.height.value_or(0) * pointsPerInch / options.verticalResolution(paperResolution);
    return PaperSize{
        points(options.width ? width : height * pageWidth / pageHeight),
        points(options.height ? height : width * pageHeight / pageWidth)};
}

} // namespace quorra
