// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_background.h"

#include "app/images.h"

#include <QBrush>
#include <QPalette>
#include <QString>
#include <QWidget>

#include <algorithm>

namespace {

QPixmap stretchedBackground(QSize size)
{
    const QString key = QStringLiteral("quorra/background/%1x%2").arg(size.width()).arg(size.height());
    return cachedPixmap(
        key, [size]() { return QPixmap::fromImage(stretched(loadImage(image::background).toImage(), size)); });
}

bool hasPlainRows(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 1; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, y)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

QImage stretched(const QImage &image, QSize size)
{
    if (image.format() != QImage::Format_RGB32 || !hasPlainRows(image)) {
        return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    const QImage column =
        image.copy(0, 0, 1, image.height()).scaled(1, size.height(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage result(size, column.format());
    for (int y = 0; y < size.height(); ++y) {
        std::fill_n(reinterpret_cast<QRgb *>(result.scanLine(y)), size.width(), column.pixel(0, y));
    }
    return result;
}

void paintBackground(QWidget *window)
{
    QPalette palette = window->palette();
    palette.setBrush(QPalette::Window, QBrush(stretchedBackground(window->size())));
    window->setPalette(palette);
}
