// SPDX-License-Identifier: GPL-3.0-or-later
#include "flow_areas.h"

#include "document/page_walk.h"
#include "odf/line_layout.h"
#include "word_columns.h"

#include <algorithm>

namespace quorra::office {

namespace {

constexpr double usualSpace = 12;   // most between blocks that do not follow one another on the page
constexpr std::size_t longText = 4; // lines that make a paragraph running text

// Columns of running text, as opposed to words put beside one another: below one another, in strips of their width,
// they would fill twice the pages.
bool isRunningText(const model::Section &section)
{
    return section.columns.size() > 1 &&
           std::any_of(section.blocks.begin(), section.blocks.end(), [](const model::Block &block) {
               return block.paragraph() && block.paragraph()->lines.size() >= longText;
           });
}

std::size_t columnAt(const model::Section &section, const Box &line)
{
    const auto at = std::find_if(section.columns.begin(), section.columns.end(), [&](const Box &column) {
        return line.centreX() >= column.left && line.centreX() <= column.right;
    });
    return static_cast<std::size_t>(at - section.columns.begin());
}

} // namespace

bool standsInColumns(const model::Section &section, const FlowForm &form)
{
    return form.columns && canStandInColumns(section);
}

double topOf(const model::Section &section)
{
    std::optional<double> top;
    for (const model::Block &block : section.blocks) {
        const double own = block.paragraph() ? laidOut(*block.paragraph()).top : block.box().top;
        top = std::min(top.value_or(own), own);
    }
    return top.value_or(0);
}

std::vector<Area> areasOf(
    const model::Page &page, const model::Section &section, const Margins &margins, const FlowForm &form, double bottom)
{
    const bool inColumns = standsInColumns(section, form);
    const bool ownStrip = inColumns || !form.places || isRunningText(section);
    const double top = topOf(section);
    std::vector<Area> areas;
    for (const Box &column : section.columns) {
        Area area;
        area.left = ownStrip ? column.left : margins.left;
        area.right = ownStrip ? column.right : page.width - margins.right;
        // A column that comes below the one before it has nothing to do with that one's end.
        area.bottom = inColumns || !areas.empty() ? top : bottom;
        areas.push_back(area);
    }
    return areas;
}

void noteLines(
    const model::Paragraph &paragraph, const model::Section &section, std::vector<Area> &areas, std::size_t own)
{
    for (const model::Line &line : paragraph.lines) {
        const std::size_t at = columnAt(section, line.box);
        const bool outside = line.box.left > paragraph.box.right || line.box.right < paragraph.box.left;
        if (outside && at < areas.size() && at != own) {
            areas[at].begun = true;
            areas[at].bottom = line.box.bottom;
            areas[at].baseline = line.baseline;
            areas[own].followsOther = true;
        }
    }
}

std::optional<double> baselineAfter(const model::Section &section, std::size_t block)
{
    if (block + 1 >= section.blocks.size() || section.blocks[block + 1].column != section.blocks[block].column) {
        return {};
    }
    const model::Paragraph *next = section.blocks[block + 1].paragraph();
    return next ? firstBaseline(*next) : std::nullopt;
}

std::vector<const model::Paragraph *> labelsAfter(const model::Section &section, std::size_t block)
{
    std::vector<const model::Paragraph *> labels;
    const model::Picture *picture = section.blocks[block].picture();
    for (std::size_t i = block + 1; picture && i < section.blocks.size() && isLabelOf(section.blocks[i], *picture);
         ++i) {
        labels.push_back(section.blocks[i].paragraph());
    }
    return labels;
}

double spaceAbove(const Area &area, double top, const FlowForm &form)
{
    const double space = std::max(0.0, top - area.bottom);
    return form.places && !area.followsOther ? space : std::min(space, usualSpace);
}

} // namespace quorra::office
