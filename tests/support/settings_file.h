// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

// The settings file of the current directory, for tests. The names are repeated here on purpose, so that tests detect a
// wrong name in the program.

/// All names without the group, as stored; empty if there is no file.
QMap<QString, QString> storedSettings();
/// A value by its name without the group; a null string if it is missing.
QString storedSetting(const QString &name);
/// Writes values by their names without the group, in the order of the map.
void storeSettings(const QMap<QString, QString> &values);
void storeSetting(const QString &name, const QString &value);
