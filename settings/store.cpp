// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/store.h"

#include <QFile>
#include <QFileInfo>

namespace store {

QSettings open()
{
    return QSettings(fileName, QSettings::IniFormat);
}

void restrictToOwner()
{
    if (QFileInfo(fileName).isFile()) {
        QFile::setPermissions(fileName, QFile::permissions(fileName) & (QFile::ReadOwner | QFile::WriteOwner));
    }
}

QString text(const QSettings &settings, QLatin1String key, QLatin1String fallback)
{
    return settings.value(key, fallback).toString();
}

void write(QLatin1String key, const QString &value)
{
    QSettings settings = open();
    settings.setValue(key, value);
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
