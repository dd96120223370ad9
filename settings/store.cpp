// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/store.h"

namespace store {

QSettings open()
{
    return QSettings(fileName, QSettings::IniFormat);
}

QString text(const QSettings &settings, QLatin1String key, QLatin1String fallback)
{
    return settings.value(key, fallback).toString();
}

bool isOn(const QString &flag)
{
    return flag == QLatin1String("1");
}

QString flagText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace store
