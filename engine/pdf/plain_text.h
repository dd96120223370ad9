// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/pdf/document.h"
#include "engine/platform/output_file.h"

namespace quorra {

/// Writes the text of the pages in reading order as the PDF library sees it, UTF-8, a form feed after each page.
void writePlainText(Document &document, int firstPage, int lastPage, OutputFile &file);

} // namespace quorra
