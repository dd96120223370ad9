// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/images.h"

#include <QPixmapCache>

QPixmap cachedPixmap(const QString &key, const std::function<QPixmap()> &make)
{
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = make();
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QPixmap loadImage(QLatin1String path)
{
    return cachedPixmap(QLatin1String("quorra/") + path, [path]() { return QPixmap(path); });
}
