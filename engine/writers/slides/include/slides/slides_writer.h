// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

namespace quorra::office {

/// Scales all pages to the size of the first one, keeping their proportions and centring their content.
void unifyPages(model::Document &document);

/// Writes a slide for each page. All pages must have the same size.
void writeSlides(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
