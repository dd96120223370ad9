// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QByteArray>
#include <QString>

namespace quorra::model {

/// A picture in a file format.
struct EncodedPicture
{
    QByteArray bytes;    ///< empty if there is no picture
    QByteArray mimeType; ///< "image/png" or "image/jpeg"
    int widthPixels = 0;
    int heightPixels = 0;
};

/// Returns a "data:" URI that contains the picture.
QString dataAddress(const EncodedPicture &picture);

/// Whether the words in a drawing are part of its picture, or the writer puts them over it as text.
enum class DrawingWords { InPicture, Apart };

/// Provides the pictures of figures. Requests in order of pages are faster than others.
class PictureSource
{
public:
    virtual ~PictureSource() = default;

    /// Returns the region of the file that the figure shows: without text for images, with text for pictures of whole
    /// pages, and as requested for drawings. The picture of an unknown figure is empty.
    virtual EncodedPicture encode(const Figure &figure, DrawingWords words) = 0;

    /// Returns everything on the page except its text. Pages are numbered from 1 in the file.
    virtual EncodedPicture background(int pageNumber) = 0;
};

} // namespace quorra::model
