// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "html_headings.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes the outline of the file as nested lists of links to headings, or to pages where no heading of the page has
/// the title. Writes nothing if the outline has fewer than two entries that lead to pages of the document.
void writeHtmlNavigation(QXmlStreamWriter &xml, const model::Document &document, const HtmlHeadings &headings);

} // namespace quorra
