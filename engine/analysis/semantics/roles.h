// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

namespace roles {

struct Thresholds
{
    qsizetype maxCaption = 150;  ///< characters; longer texts are sentences that begin with a figure's name
    double minFootnoteTop = 0.6; ///< share of the page's height; notes are in the lower part of the page
};

inline constexpr Thresholds thresholds;

} // namespace roles

/// Gives the paragraphs of the whole document their roles: captions, headings, footnotes, levels of lists.
void assignRoles(Document &document);

} // namespace quorra::model
