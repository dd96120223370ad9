// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/raster.h"

#include <QImage>
#include <QPainter>

/// A white page in shades of gray.
inline QImage whitePage(int width, int height)
{
    QImage page(width, height, QImage::Format_Grayscale8);
    page.fill(Qt::white);
    return page;
}

/// A page of 150 dots per inch with lines of text, whose centre is that of the page.
inline QImage textPage(int width = 1000, int height = 1000)
{
    static const QStringList lines = {
        QStringLiteral("The boats leave the harbour before daybreak"),
        QStringLiteral("and nobody bothers to look after them. Fish"),
        QStringLiteral("follow the tide; they hide behind the black"),
        QStringLiteral("blocks of the old bulkhead, half a kilometre"),
        QStringLiteral("off the lighthouse that the storm had felled."),
    };
    QImage page = whitePage(width, height);
    QPainter painter(&page);
    QFont font(QStringLiteral("DejaVu Serif"));
    font.setPixelSize(24);
    painter.setFont(font);
    constexpr int pitch = 38;
    constexpr int margin = 200;
    for (int y = margin; y < height - margin; y += pitch) {
        painter.drawText(margin, y, lines[(y / pitch) % lines.size()]);
    }
    return page;
}

/// The page rotated clockwise about its centre, with its size unchanged and white corners.
inline QImage skewedPage(const QImage &page, double degrees)
{
    QImage rotated = whitePage(page.width(), page.height());
    QPainter painter(&rotated);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(page.width() / 2.0, page.height() / 2.0);
    painter.rotate(degrees);
    painter.drawImage(QPointF(-page.width() / 2.0, -page.height() / 2.0), page);
    return rotated;
}

/// The pixels of the image, which must outlive the raster.
inline quorra::Raster rasterOf(const QImage &image)
{
    return {
        image.width(),
        image.height(),
        quorra::ColourDepth::Gray,
        static_cast<std::size_t>(image.bytesPerLine()),
        image.constBits(),
        {}};
}
