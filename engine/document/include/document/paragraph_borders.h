// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <optional>

namespace quorra::office {

/// What a flowing paragraph takes over from the page around it.
struct Decoration
{
    model::Border above;
    model::Border below;
    std::optional<Colour> background;
    double gapAbove = 0; ///< points between the line above and the text
    double gapBelow = 0;
    double aboveFrom = 0; ///< where the line above begins and ends
    double aboveTo = 0;
};

/// The separator lines just above and below the block and the background behind it. Of two blocks at one line the lower
/// one gets it; the upper one only when nothing follows in its column.
Decoration decorationOf(const model::Page &page, const Box &block);

/// True when there is a line above that reaches over a part of the column only.
bool hasShortRule(const Decoration &decoration, const Box &column);

/// The separator lines just above and below a line of a running head with this box. Lines that belong to a running head
/// are no block's.
Decoration headDecoration(const model::Page &page, const Box &line);

} // namespace quorra::office
