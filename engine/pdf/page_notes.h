// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

class PDFDoc;

namespace quorra {

/// Sets the page's label if it differs from the page's number, and its comments.
void readPageNotes(PDFDoc &doc, int pageNumber, model::RawPage &page);

} // namespace quorra
