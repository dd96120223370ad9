// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

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

/// What becomes of the words in a drawing: they are part of its picture, or the writer writes them as text over the
/// picture.
enum class DrawingWords { InPicture, Apart };

/// Gives the pixels of figures. Asking page by page is cheap, jumping between pages is not.
class PictureSource
{
public:
    virtual ~PictureSource() = default;

    /// The region of the file that the document has for the figure: without the page's text for images, with it for
    /// pictures of the whole page, as asked for with drawings. A figure that the document does not have gives no bytes.
    virtual EncodedPicture encode(const Figure &figure, DrawingWords words) = 0;

    /// All that is drawn on the page except its text. pageNumber counts from 1 in the file.
    virtual EncodedPicture background(int pageNumber) = 0;
};

} // namespace quorra::model
