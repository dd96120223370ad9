// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/appearance.h"

#include <QApplication>
#include <QBrush>
#include <QEvent>
#include <QIcon>
#include <QImage>
#include <QPalette>
#include <QPixmapCache>
#include <QString>
#include <QToolButton>
#include <QWidget>

#include <algorithm>
#include <array>

namespace {

/// Windows are made often, also ones that are never shown: what they share is drawn once and kept in the toolkit's
/// cache, which goes away with the application.
template <class Make>
QPixmap cached(const QString &key, Make make)
{
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = make();
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QPixmap stretchedBackground(QSize size)
{
    const QString key = QStringLiteral("quorra/background/%1x%2").arg(size.width()).arg(size.height());
    return cached(
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

struct RoleColor
{
    QPalette::ColorRole role;
    QRgb enabled;
    QRgb disabled;
};

/// Every role is named, so that nothing of the desktop's palette shines through.
constexpr std::array lightColors{
    RoleColor{QPalette::WindowText, 0xff000000, 0xff787878},
    RoleColor{QPalette::Button, 0xffefefef, 0xffefefef},
    RoleColor{QPalette::Light, 0xffffffff, 0xffffffff},
    RoleColor{QPalette::Midlight, 0xffcacaca, 0xffcacaca},
    RoleColor{QPalette::Dark, 0xff9f9f9f, 0xffbebebe},
    RoleColor{QPalette::Mid, 0xffb8b8b8, 0xffb8b8b8},
    RoleColor{QPalette::Text, 0xff000000, 0xff787878},
    RoleColor{QPalette::BrightText, 0xffffffff, 0xffffffff},
    RoleColor{QPalette::ButtonText, 0xff000000, 0xff787878},
    RoleColor{QPalette::Base, 0xffffffff, 0xffefefef},
    RoleColor{QPalette::Window, 0xffefefef, 0xffefefef},
    RoleColor{QPalette::Shadow, 0xff767676, 0xffb1b1b1},
    RoleColor{QPalette::Highlight, 0xff308cc6, 0xff919191},
    RoleColor{QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    RoleColor{QPalette::Link, 0xff0000ff, 0xff0000ff},
    RoleColor{QPalette::LinkVisited, 0xffff00ff, 0xffff00ff},
    RoleColor{QPalette::AlternateBase, 0xfff7f7f7, 0xfff7f7f7},
    RoleColor{QPalette::ToolTipBase, 0xffffffdc, 0xffffffdc},
    RoleColor{QPalette::ToolTipText, 0xff000000, 0xff000000},
    RoleColor{QPalette::PlaceholderText, 0x80000000, 0x80000000},
};

QPalette lightPalette()
{
    QPalette light;
    for (const RoleColor &color : lightColors) {
        light.setColor(QPalette::Active, color.role, QColor::fromRgba(color.enabled));
        light.setColor(QPalette::Inactive, color.role, QColor::fromRgba(color.enabled));
        light.setColor(QPalette::Disabled, color.role, QColor::fromRgba(color.disabled));
    }
    return light;
}

/// Puts the light palette back whenever a change of the desktop's colours or style has replaced it.
class LightLook : public QObject
{
public:
    using QObject::QObject;

    void apply()
    {
        m_isApplying = true;
        // The toolkit forgets the palettes of single classes, which the desktop may have given as well, when the
        // application's changes: so it changes twice.
        QApplication::setPalette(QPalette());
        QApplication::setPalette(lightPalette());
        m_isApplying = false;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp && !m_isApplying) {
            apply();
        }
        return false;
    }

private:
    bool m_isApplying = false;
};

} // namespace

QPixmap loadImage(QLatin1String path)
{
    return cached(QLatin1String("quorra/") + path, [path]() { return QPixmap(path); });
}

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

void dressToolButton(QToolButton *button, const QString &text, QLatin1String imagePath)
{
    const QPixmap pixmap = loadImage(imagePath);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    button->setText(text);
    button->setIcon(QIcon(pixmap));
    button->setIconSize(pixmap.size());
}

void keepLightLook()
{
    auto *look = new LightLook(qApp);
    look->setObjectName(QStringLiteral("lightLook"));
    look->apply();
    qApp->installEventFilter(look);
}
