// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::office {

/// What most slides have behind their text, in the order in which it is painted.
struct CommonBackground
{
    std::vector<model::Fill> fills;
    std::vector<model::Figure> pictures;

    bool isEmpty() const { return fills.empty() && pictures.empty(); }
};

/// Returns what is on more than half of the pages: the fills that are painted first, and images at the same place that
/// nothing else is painted on.
CommonBackground commonBackground(const model::Document &document);

/// Returns whether the page has all of it.
bool hasBackground(const model::Page &page, const CommonBackground &common);

/// Returns whether the figure is one of the common pictures.
bool isCommon(const model::Figure &figure, const CommonBackground &common);

/// Returns whether the fill covers the whole page.
bool coversPage(const model::Fill &fill, const model::Page &page);

} // namespace quorra::office
