// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"

class QXmlStreamWriter;

namespace quorra {

/// Writes a picture with its bytes. labels, which may be null, are the words that a drawing shows: they lie over it at
/// their places, transparent, so that they are seen once, heard once, found and copied. alt is what is heard for it;
/// centred puts it into the middle of its column.
void writeHtmlPicture(
    QXmlStreamWriter &xml, const model::EncodedPicture &encoded, const Box &box, const model::Paragraph *labels,
    const QString &alt, bool centred);

} // namespace quorra
