// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

class QToolButton;

/// Sets the look of a toolbar button: `text` below the image, which is shown in its original size.
void dressToolButton(QToolButton *button, const QString &text, QLatin1String imagePath);
