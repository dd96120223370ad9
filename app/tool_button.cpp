// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool_button.h"

#include "app/images.h"

#include <QIcon>
#include <QToolButton>

void dressToolButton(QToolButton *button, const QString &text, QLatin1String imagePath)
{
    const QPixmap pixmap = loadImage(imagePath);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    button->setText(text);
    button->setIcon(QIcon(pixmap));
    button->setIconSize(pixmap.size());
}
