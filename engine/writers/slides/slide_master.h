// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"
#include "slide_background.h"
#include "slide_boxes.h"

namespace quorra::office {

/// The names of the master pages.
struct SlideMasters
{
    QString common; ///< with the common background
    QString plain;  ///< without; the same if nothing is common
};

/// Writes the master pages of slides of this size, with the common background and with the placeholders of titles and
/// outlines.
SlideMasters
writeMasters(OdfFile &file, const model::Page &size, const CommonBackground &common, model::PictureSource &pictures);

/// Returns the name of the style of a slide or master page that is filled with this colour.
QString filledPageStyle(StyleTable &styles, Colour colour);

/// Returns the name of the layout with the placeholders that these boxes fill; empty if they fill none.
QString layoutName(const std::vector<SlideBox> &boxes);

} // namespace quorra::office
