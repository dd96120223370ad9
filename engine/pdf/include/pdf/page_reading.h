// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "pdf/document_copies.h"
#include "pdf/page_reader.h"

#include <vector>

namespace quorra {

/// The raw pages from firstPage (from 1) on, so many of them, in their order; all must be in the document. Many pages
/// are read by several threads.
std::vector<model::RawPage> collectPages(DocumentCopies &copies, int firstPage, int pageCount, Collect what);

} // namespace quorra
