// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/picture_source.h"

namespace quorra::model {

QString dataAddress(const EncodedPicture &picture)
{
    return QStringLiteral("data:%1;base64,%2")
        .arg(QString::fromLatin1(picture.mimeType), QString::fromLatin1(picture.bytes.toBase64()));
}

} // namespace quorra::model
