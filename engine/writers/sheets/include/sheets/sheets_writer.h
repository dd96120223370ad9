// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

namespace quorra::office {

/// Writes one sheet for each page with tables and for each scanned page; a document without either gives one sheet
/// with its lines of text.
void writeSheets(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
