// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

class PDFDoc;

namespace quorra {

/// Writes into each word the target of the link whose area it stands in.
void applyLinks(PDFDoc &doc, int pageNumber, model::RawPage &page);

} // namespace quorra
