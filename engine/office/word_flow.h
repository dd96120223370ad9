// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"
#include "engine/model/picture.h"
#include "engine/office/flow_areas.h"
#include "engine/office/odf_file.h"

namespace quorra::office {

/// Writes the document as flowing paragraphs, tables and pictures.
void writeFlow(OdfFile &file, const model::Document &document, model::PictureSource &pictures, const FlowForm &form);

} // namespace quorra::office
