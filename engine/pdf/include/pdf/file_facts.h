// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/file_facts.h"
#include "pdf/pdf_file.h"

namespace quorra {

/// Reads what the file says about itself. What is broken or has no end is left out.
model::FileFacts readFileFacts(PdfFile &file);

} // namespace quorra
