// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

namespace quorra::office {

/// Writes a sheet for each page with tables and for each scanned page. If there are none, writes a single sheet with
/// the lines of text.
void writeSheets(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
