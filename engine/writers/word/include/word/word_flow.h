// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"
#include "word/flow_form.h"

namespace quorra::office {

/// Writes the document as flowing text: paragraphs, tables and pictures.
void writeFlow(OdfFile &file, const model::Document &document, model::PictureSource &pictures, const FlowForm &form);

} // namespace quorra::office
