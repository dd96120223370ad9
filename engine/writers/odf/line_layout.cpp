// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/line_layout.h"

#include "odf/odf_runs.h"

#include <algorithm>

namespace quorra::office {

namespace {

struct Thresholds
{
    double rounding = 0.5; ///< points; by which a line of the paragraph may extend below its box
};
constexpr Thresholds thresholds;

double singleLineHeight(double size, double baseline, std::optional<double> before, std::optional<double> after)
{
    double height = lineHeights.usual * size;
    if (before && *before < baseline) {
        height = std::min(height, baseline - *before);
    }
    if (after && *after > baseline) {
        height = std::min(height, *after - baseline);
    }
    return std::max(height, lineHeights.min * size);
}

} // namespace

std::optional<double> firstBaseline(const model::Paragraph &paragraph)
{
    return paragraph.lines.empty() ? std::nullopt : std::optional(paragraph.lines.front().baseline);
}

std::optional<double> lastBaseline(const model::Paragraph &paragraph)
{
    std::optional<double> last;
    for (const model::Line &line : paragraph.lines) {
        const bool inside =
            line.box.bottom <= paragraph.box.bottom + thresholds.rounding && (!last || line.baseline >= *last);
        if (inside) {
            last = line.baseline;
        }
    }
    return last ? last : firstBaseline(paragraph);
}

LineLayout
lineLayout(const model::Paragraph &paragraph, std::optional<double> baselineBefore, std::optional<double> baselineAfter)
{
    const std::optional<double> first = firstBaseline(paragraph);
    const std::optional<double> last = lastBaseline(paragraph);
    const double size = largestSize(paragraph);
    if (!first || paragraph.rotation != 0) {
        return {paragraph.box.top, paragraph.box.bottom, lineHeights.usual * size};
    }
    if (paragraph.lineDistance > lineHeights.max * size) {
        return {paragraph.box.top, paragraph.box.bottom, 0};
    }
    const double height = paragraph.lineDistance > 0 ? std::max(paragraph.lineDistance, lineHeights.min * size)
                                                     : singleLineHeight(size, *first, baselineBefore, baselineAfter);
    return {*first - baselineShare * height, *last + (1 - baselineShare) * height, height};
}

} // namespace quorra::office
