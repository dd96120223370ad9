// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

namespace quorra::office {

/// Writes the document with each block of text in a frame at its position.
void writeFramed(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

/// Writes the document with every line at its position over a picture of everything that is not text.
void writeExact(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
