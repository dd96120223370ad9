// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes a figure with the bytes of its picture. Its labels are transparent text at their positions over the picture,
/// for searching, copying and screen readers. `alt` is its alternative text; `centred` centres it in its column.
void writeHtmlFigure(
    QXmlStreamWriter &xml, const model::EncodedPicture &encoded, const model::Figure &figure, const QString &alt,
    bool centred);

} // namespace quorra
