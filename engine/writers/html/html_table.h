// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes a table with its merged cells, lines and backgrounds. around is the look of the text around it; centred puts
/// it into the middle of its column. A table wider than the window scrolls by itself.
void writeHtmlTable(QXmlStreamWriter &xml, const model::Table &table, const model::Style &around, bool centred);

} // namespace quorra
