// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "page_layout.h"
#include "word/flow_form.h"

#include <optional>
#include <vector>

namespace quorra::office {

/// The strip that blocks stand in, a column or the page between its margins, and how far it is filled. In points.
struct Area
{
    double left = 0;
    double right = 0;
    double bottom = 0;              ///< of what is laid out so far, as it lies on the page
    std::optional<double> baseline; ///< the last one so far, where the last block has one
    bool begun = false;             ///< text of the document stands in it
    bool followsOther = false;      ///< what comes next did not follow on the page what came last
};

/// The areas of a section's columns, before anything stands in them; bottom is where the section above ends.
std::vector<Area> areasOf(
    const model::Page &page, const model::Section &section, const Margins &margins, const FlowForm &form,
    double bottom);

/// True when the section's columns stand beside one another in this form of flowing text.
bool standsInColumns(const model::Section &section, const FlowForm &form);

/// Where the first line, table or picture of the section begins.
double topOf(const model::Section &section);

/// Notes that the paragraph, which stands in areas[own], took over lines from further columns: these have begun then.
void noteLines(
    const model::Paragraph &paragraph, const model::Section &section, std::vector<Area> &areas, std::size_t own);

/// The first baseline of the block that follows this one in its column; nothing when that is no paragraph.
std::optional<double> baselineAfter(const model::Section &section, std::size_t block);

/// The labels of the drawing at this place of the section, which follow it; none for other blocks.
std::vector<const model::Paragraph *> labelsAfter(const model::Section &section, std::size_t block);

/// The blank space between what the area holds and a block that begins at this y.
double spaceAbove(const Area &area, double top, const FlowForm &form);

} // namespace quorra::office
