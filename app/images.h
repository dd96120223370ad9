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

/// The pixmap kept under `key`; the first call makes it. Windows are made often, also ones that are never shown: what
/// they share is drawn once and kept in the toolkit's cache, which goes away with the application.
[[nodiscard]] QPixmap cachedPixmap(const QString &key, const std::function<QPixmap()> &make);

/// The image at its own size, read once; a null pixmap when there is none of that path.
[[nodiscard]] QPixmap loadImage(QLatin1String path);
