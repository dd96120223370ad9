// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "html_anchors.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes a table with its merged cells, borders and backgrounds. `around` is the style of the text around it;
/// `centred` centres it in its column. Header rows are a head, whose cells are headers of their columns. A table wider
/// than the window can be scrolled separately, also with the keyboard.
void writeHtmlTable(
    QXmlStreamWriter &xml, const model::Table &table, const model::Style &around, bool centred, HtmlAnchors &anchors);

} // namespace quorra
