// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "pdf/page_reader.h"
#include "pdf/pdf_file_pool.h"

#include <vector>

namespace quorra {

/// Reads `pageCount` pages, starting with `firstPage` (numbered from 1); all must be in the file. If there are many
/// pages, several threads read them. The structure, if there is one, assigns the text to its elements.
std::vector<model::RawPage>
collectPages(PdfFilePool &pool, int firstPage, int pageCount, Collect what, const Structure *structure = nullptr);

} // namespace quorra
