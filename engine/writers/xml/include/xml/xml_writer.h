// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"

#include <QIODevice>

namespace quorra {

/// Writes the document with all positions: pages, blocks, lines and words with their boxes (in points from the top left
/// corner of the displayed page; see document.h), the font of each word, tables with their cells, pictures, and rules.
/// Without a source, pictures are boxes without content. docs/xml-format.md describes the format, docs/xml-format.xsd
/// is its schema. Programs read the names of elements, attributes and values: existing ones must not change.
void writeXml(QIODevice &out, const model::Document &document, model::PictureSource *pictures = nullptr);

} // namespace quorra
