// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"

#include <optional>

namespace quorra::office {

/// What a flowing paragraph takes over from the page around it.
struct Decoration
{
    model::Border above;
    model::Border below;
    std::optional<model::Colour> background;
};

/// The separator lines just above and below the block and the background behind it. Of two blocks at one line the lower
/// one gets it; the upper one only when nothing follows in its column.
Decoration decorationOf(const model::Page &page, const model::Box &block);

/// True when the picture lies behind text rather than among it.
bool isBehindText(const model::Page &page, const model::Picture &picture);

} // namespace quorra::office
