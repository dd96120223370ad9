// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

class RandomSource;

// A second implementation of the engine option string, as a list of steps for raw stored texts; it shares neither
// tables nor code with the program.

/// Stored texts by key without the group; missing keys are not in the map.
using StoredTexts = QMap<QString, QString>;

StoredTexts randomStoredTexts(RandomSource &random);
QString modelOptions(const StoredTexts &stored, const QString &extension);
