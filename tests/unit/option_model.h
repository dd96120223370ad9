// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

class RandomSource;

// A second way to the engine option string, written as a list of steps over raw stored texts; it shares neither tables
// nor code with the program.

/// Stored texts by their key without the group; a missing key is not in the map.
using StoredTexts = QMap<QString, QString>;

StoredTexts randomStoredTexts(RandomSource &random);
QString modelOptions(const StoredTexts &stored, const QString &extension);
