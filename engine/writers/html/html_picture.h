// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes a figure with the bytes of its picture. Its labels lie over it at their places, transparent, so that they are
/// seen once, heard once, found and copied. alt is what is heard for it; centred puts it into the middle of its column.
void writeHtmlFigure(
    QXmlStreamWriter &xml, const model::EncodedPicture &encoded, const model::Figure &figure, const QString &alt,
    bool centred);

} // namespace quorra
