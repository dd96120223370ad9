// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "page_maker.h"

#include "html/html_writer.h"

#include <QBuffer>

/// Pictures that name their figure.
class OnePixel : public quorra::model::PictureSource
{
public:
    quorra::model::EncodedPicture encode(const quorra::model::Figure &figure, quorra::model::DrawingWords) override
    {
        return {QByteArray::number(static_cast<int>(figure.id)), "image/png", 1, 1};
    }
    quorra::model::EncodedPicture background(int) override { return {}; }
};

/// The document as HTML.
inline QString writtenHtml(const quorra::model::Document &document, bool xhtml = false)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OnePixel pictures;
    quorra::writeHtml(buffer, document, pictures, {xhtml, QStringLiteral("a < b")});
    return QString::fromUtf8(buffer.data());
}

/// The same with continuations joined, as the engine does it.
inline QString html(quorra::model::Document document, bool xhtml = false)
{
    quorra::model::joinContinuations(document, true);
    return writtenHtml(document, xhtml);
}

/// For messages, which are cut: without the style sheet.
inline QString bodyOf(const QString &html)
{
    return html.mid(html.indexOf(QStringLiteral("<body>")));
}
