// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QSettings;

/// The settings that are passed to the engine, in stored form; the initial values are the defaults for missing keys.
struct EngineSettings
{
    int wordMode = 0;
    QString tempName;
    QString singleTempName = QStringLiteral("0");
    QString firstPage = QStringLiteral("0");
    QString lastPage = QStringLiteral("0");
    QString outputKindRow = QStringLiteral("0"); ///< read with the others, but not passed as an option
    QString resizePage = QStringLiteral("0");
    QString width = QStringLiteral("0");
    QString height = QStringLiteral("0");
    QString resetResolution = QStringLiteral("0");
    QString xRes = QStringLiteral("0");
    QString yRes = QStringLiteral("0");
    QString colorDepth = QStringLiteral("2");
    QString compression = QStringLiteral("0");
    QString multiPageTiff = QStringLiteral("0");
    QString userPassword;
    QString masterPassword;
};

/// Reads all settings from an open store.
[[nodiscard]] EngineSettings readEngineSettings(const QSettings &settings);
