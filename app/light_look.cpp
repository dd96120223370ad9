// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/light_look.h"

#include <QApplication>
#include <QColor>
#include <QEvent>
#include <QPalette>
#include <QString>

#include <array>

namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    QRgb enabled;
    QRgb disabled;
};

/// Lists all roles, so that no colour of the desktop's palette remains.
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

/// Restores the light palette whenever a change of the desktop's colours or style has replaced it.
class LightLook : public QObject
{
public:
    using QObject::QObject;

    void apply()
    {
        m_isApplying = true;
        // Qt resets the palettes of individual classes, which the desktop may also have set, when the application's
        // palette changes. Therefore it is changed twice.
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

void keepLightLook()
{
    auto *look = new LightLook(qApp);
    look->setObjectName(QStringLiteral("lightLook"));
    look->apply();
    qApp->installEventFilter(look);
}
