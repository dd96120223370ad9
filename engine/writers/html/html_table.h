// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes a table with its merged cells, borders and backgrounds. `around` is the style of the text around it;
/// `centred` centres it in its column. A table wider than the window can be scrolled separately.
void writeHtmlTable(QXmlStreamWriter &xml, const model::Table &table, const model::Style &around, bool centred);

} // namespace quorra
