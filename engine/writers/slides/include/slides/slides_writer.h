// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

namespace quorra::office {

/// Puts every page into the size of the first one: scaled to fit where it differs, and centred.
void unifyPages(model::Document &document);

/// Writes a slide for each page; all pages have the size of the first.
void writeSlides(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
