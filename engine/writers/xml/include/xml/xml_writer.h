// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QIODevice>

namespace quorra {

/// Writes all that was found with its place: pages, blocks, lines and words with boxes (points from the top left corner
/// of the page as shown; see document.h), each word with its font, tables with their cells, pictures as boxes, rules.
void writeXml(QIODevice &out, const model::Document &document);

} // namespace quorra
