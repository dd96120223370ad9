// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_file.h"
#include "slide_boxes.h"

namespace quorra::office {

/// Writes the master page of slides of this size, with the placeholders of titles and outlines. Returns its name.
QString writeMaster(OdfFile &file, const model::Page &size);

/// Returns the name of the layout with the placeholders that these boxes fill; empty if they fill none.
QString layoutName(const std::vector<SlideBox> &boxes);

} // namespace quorra::office
