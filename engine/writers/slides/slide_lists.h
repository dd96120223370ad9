// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_styles.h"

#include <optional>
#include <vector>

namespace quorra::office {

/// The list that a paragraph of a text box is in. Lengths in points.
struct SlideList
{
    int level = 1;   ///< from 1
    Element style;   ///< its definition, with the mark at this level; without a name
    double hang = 0; ///< from the mark to the text
};

/// Returns the lists of the paragraphs of one text box. Nothing for paragraphs that are no list items, and for those
/// whose mark presentation programs cannot make themselves: it remains text.
std::vector<std::optional<SlideList>> slideLists(const std::vector<model::Paragraph> &paragraphs);

} // namespace quorra::office
