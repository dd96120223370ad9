// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QPixmap>
#include <QString>

#include <functional>

/// The paths of the compiled-in images.
namespace image {
inline constexpr QLatin1String background(":/MyImage/Image/bg1.png");
inline constexpr QLatin1String row(":/MyImage/Image/listwidget1.png");
inline constexpr QLatin1String currentRow(":/MyImage/Image/listwidget2.png");
inline constexpr QLatin1String add(":/MyImage/Image/add.png");
inline constexpr QLatin1String remove(":/MyImage/Image/delete.png");
inline constexpr QLatin1String clear(":/MyImage/Image/clear.png");
inline constexpr QLatin1String setting(":/MyImage/Image/setting.png");
inline constexpr QLatin1String start(":/MyImage/Image/start.png");
inline constexpr QLatin1String stop(":/MyImage/Image/stop.png");
inline constexpr QLatin1String about(":/MyImage/Image/about.png");
} // namespace image

/// Returns the pixmap cached under `key`; the first call creates it with `make`. Windows are constructed often,
/// including ones that are never shown, so that what they share is kept in Qt's cache, which is cleared when the
/// application exits.
[[nodiscard]] QPixmap cachedPixmap(const QString &key, const std::function<QPixmap()> &make);

/// Returns the image in its original size; it is read only once. Returns a null pixmap if there is no such image.
[[nodiscard]] QPixmap loadImage(QLatin1String path);
