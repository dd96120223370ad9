// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>

class QWidget;

/// Scales the image smoothly, ignoring its aspect ratio. The result is that of QImage::scaled(), but an image in which
/// each row has a single colour is scaled as a single column, which takes a fraction of the time and shortens the start
/// of the program.
[[nodiscard]] QImage stretched(const QImage &image, QSize size);

/// Sets the background image, scaled to the size of the window, as the window's background.
void paintBackground(QWidget *window);
