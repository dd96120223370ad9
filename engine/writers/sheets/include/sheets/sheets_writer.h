// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

#include <vector>

namespace quorra::office {

/// Writes a sheet for each page with all that is on it, in reading order: each paragraph in a row, tables in columns of
/// their own, pictures at their places. A table that continues on the next pages is whole on its first page; a page
/// with nothing else has no sheet.
///
/// Returns for each sheet how many rows at its top should remain visible when it is scrolled: those down to the end of
/// the head of its only table. The file itself has no place for this that LibreOffice reads without a window.
std::vector<int> writeSheets(OdfFile &file, const model::Document &document, model::PictureSource &pictures);

} // namespace quorra::office
