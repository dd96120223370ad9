// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct EngineSettings;

/// Returns the engine's number of a stored word mode; 0 for an invalid mode.
[[nodiscard]] int engineWordMode(int stored);

/// Returns the engine's code of a stored compression; empty if no option is sent for it.
[[nodiscard]] QString engineCompression(int stored);

/// Returns the engine option string for an output extension (with its dot, case-sensitive): fourteen fragments joined
/// by single spaces, including empty ones. Each token is enclosed in double quotes, and nothing is escaped.
[[nodiscard]] QString engineOptions(const EngineSettings &settings, const QString &extension);
