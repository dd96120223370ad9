// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

// The settings file of the current directory as tests see it. The names are written out here on purpose: a wrong name
// in the program must not go unnoticed because the test shares it.

/// All names without the group, as stored; empty when there is no file.
QMap<QString, QString> storedSettings();
/// One value by its name without the group; a null string when it is missing.
QString storedSetting(const QString &name);
/// Writes values by their names without the group, in the order of the map.
void storeSettings(const QMap<QString, QString> &values);
void storeSetting(const QString &name, const QString &value);
