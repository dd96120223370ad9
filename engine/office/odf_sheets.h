// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"
#include "engine/model/picture.h"
#include "engine/office/odf_file.h"

namespace quorra::office {

/// Writes one sheet for each page with tables and for each scanned page; a document without either gives one sheet
/// with its lines of text.
void writeSheets(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
