// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_file.h"

#include <QSettings>

namespace {

const QLatin1String fileName("settingquorra.ini");
const QLatin1String group("SettingInfo");

} // namespace

QMap<QString, QString> storedSettings()
{
    QSettings settings(fileName, QSettings::IniFormat);
    settings.beginGroup(group);
    QMap<QString, QString> values;
    const QStringList keys = settings.childKeys();
    for (const QString &key : keys) {
        if (!key.isEmpty()) { // a broken file may hold a value without a name
            values.insert(key, settings.value(key).toString());
        }
    }
    return values;
}

QString storedSetting(const QString &name)
{
    return storedSettings().value(name);
}

void storeSettings(const QMap<QString, QString> &values)
{
    QSettings settings(fileName, QSettings::IniFormat);
    settings.beginGroup(group);
    for (auto it = values.begin(); it != values.end(); ++it) {
        settings.setValue(it.key(), it.value());
    }
}

void storeSetting(const QString &name, const QString &value)
{
    storeSettings({{name, value}});
}
