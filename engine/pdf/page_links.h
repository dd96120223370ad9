// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

class PDFDoc;

namespace quorra {

/// Sets the link target of each word that is inside the area of a link.
void applyLinks(PDFDoc &doc, int pageNumber, model::RawPage &page);

} // namespace quorra
