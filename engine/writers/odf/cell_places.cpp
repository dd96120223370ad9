// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/cell_places.h"

#include "odf/line_layout.h"
#include "odf/odf_runs.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double maxIndent = 0.6;     ///< share of the cell's width; a larger distance from the edge is no indent
    double borderHeight = 0.75; ///< points; of the lines above and below a row together
    double maxOffCentre = 3;    ///< points; by which the middle of text can be off the middle of its cell
};
constexpr Thresholds thresholds;

void indent(model::Paragraph &paragraph, const Box &cell)
{
    const auto inside = [&cell](double space) { return std::clamp(space, 0.0, thresholds.maxIndent * cell.width()); };
    paragraph.indentLeft = 0;
    paragraph.indentRight = 0;
    if (paragraph.alignment == model::Alignment::Left || paragraph.alignment == model::Alignment::Justify) {
        paragraph.indentLeft = inside(paragraph.box.left - cell.left);
    }
    if (paragraph.alignment == model::Alignment::Right || paragraph.alignment == model::Alignment::Justify) {
        paragraph.indentRight = inside(cell.right - paragraph.box.right);
    }
}

double lineHeightIn(const model::Paragraph &paragraph, double room)
{
    const double usual = lineLayout(paragraph).lineHeight;
    return usual > room ? std::max(lineHeights.min * largestSize(paragraph), room) : usual;
}

} // namespace

std::vector<CellParagraph> placedInCell(const model::Cell &cell)
{
    if (cell.box.isEmpty()) {
        std::vector<CellParagraph> unplaced;
        for (const model::Paragraph &paragraph : cell.paragraphs) {
            unplaced.push_back({paragraph});
        }
        return unplaced;
    }
    double lines = 0;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        lines += static_cast<double>(paragraph.lines.size());
    }
    const double room = (cell.box.height() - thresholds.borderHeight) / std::max(1.0, lines);
    double spare = cell.box.height() - thresholds.borderHeight;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        spare -= lineHeightIn(paragraph, room) * static_cast<double>(paragraph.lines.size());
    }
    spare = std::max(0.0, spare);
    std::vector<CellParagraph> placed;
    double bottom = cell.box.top;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        CellParagraph next{paragraph, lineHeightIn(paragraph, room)};
        const std::optional<double> first = firstBaseline(paragraph);
        const double top = first ? *first - baselineShare * next.lineHeight : paragraph.box.top;
        next.paragraph.spaceBefore = std::max(0.0, top - bottom - (placed.empty() ? thresholds.borderHeight : 0));
        next.paragraph.spaceBefore = std::min(next.paragraph.spaceBefore, spare);
        spare -= next.paragraph.spaceBefore;
        indent(next.paragraph, cell.box);
        bottom = top + next.lineHeight * static_cast<double>(paragraph.lines.size());
        placed.push_back(std::move(next));
    }
    return placed;
}

QString verticalAlignment(const model::Cell &cell)
{
    const double above = cell.paragraphs.front().box.top - cell.box.top;
    const double below = cell.box.bottom - cell.paragraphs.back().box.bottom;
    return std::abs(above - below) <= 2 * thresholds.maxOffCentre ? u"middle"_s
           : above < below                                        ? u"top"_s
                                                                  : u"bottom"_s;
}

} // namespace quorra::office
