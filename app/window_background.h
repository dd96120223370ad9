// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>

class QWidget;

/// The image at another size, ignoring its aspect ratio, smoothly: what QImage::scaled() gives. An image whose rows are
/// of one colour each is stretched as a single column, which takes a fraction of the time; every start waits for it.
[[nodiscard]] QImage stretched(const QImage &image, QSize size);

/// Lays the background image, stretched to the window's size, under everything the window shows.
void paintBackground(QWidget *window);
