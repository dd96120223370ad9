// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "convert/convert.h"
#include "document/document.h"
#include "pdf/page_reader.h"
#include "pdf/pdf_file_pool.h"

namespace quorra {

/// Reads the pages of the job and builds the document from them, with what the file says about itself unless only its
/// text is wanted.
model::Document readDocument(const Job &job, PdfFilePool &pool, Collect what);

} // namespace quorra
