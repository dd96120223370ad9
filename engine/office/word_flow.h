// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"
#include "engine/model/picture.h"
#include "engine/office/odf_file.h"

namespace quorra::office {

/// What a flowing text keeps of the pages it comes from.
struct FlowForm
{
    bool columns = false; ///< columns stay columns; otherwise they follow one another
    bool pages = true;    ///< page breaks and running heads stay
    bool places = true;   ///< indents and spacing as on the page
};

/// Writes the document as flowing paragraphs, tables and pictures.
void writeFlow(OdfFile &file, const model::Document &document, model::PictureSource &pictures, const FlowForm &form);

} // namespace quorra::office
