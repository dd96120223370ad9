// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QLatin1String>
#include <QPixmap>

class QToolButton;
class QWidget;

// The compiled-in images and what the windows make of them.
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

/// The image at its own size, read once; a null pixmap when there is none of that path.
[[nodiscard]] QPixmap loadImage(QLatin1String path);

/// The image at another size, ignoring its aspect ratio, smoothly: what QImage::scaled() gives. An image whose rows are
/// of one colour each is stretched as a single column, which takes a fraction of the time; every start waits for it.
[[nodiscard]] QImage stretched(const QImage &image, QSize size);

/// Lays the background image, stretched to the window's size, under everything the window shows.
void paintBackground(QWidget *window);

/// The look of a toolbar button: `text` below the image, which keeps its own size.
void dressToolButton(QToolButton *button, const QString &text, QLatin1String imagePath);

/// Gives the application a light palette, and gives it back after each change of the desktop's palette, theme or style:
/// background and text colours of the windows are made for it. Call it once, when there is an application object.
void keepLightLook();
