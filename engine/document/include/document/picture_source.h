// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QByteArray>

namespace quorra::model {

/// A picture as bytes of a file format.
struct EncodedPicture
{
    QByteArray bytes;    ///< empty when the picture cannot be had
    QByteArray mimeType; ///< "image/png" or "image/jpeg"
    int widthPixels = 0;
    int heightPixels = 0;
};

/// Gives the pixels of pictures. Asking page by page is cheap, jumping between pages is not.
class PictureSource
{
public:
    virtual ~PictureSource() = default;

    /// The part of the page inside the box, as shown: without the page's text for images, with it for drawings and
    /// pictures of the whole page. pageNumber counts from 1 in the file.
    virtual EncodedPicture encode(int pageNumber, const Box &box, PictureKind kind) = 0;

    /// All that is drawn on the page except its text.
    virtual EncodedPicture background(int pageNumber) = 0;
};

} // namespace quorra::model
