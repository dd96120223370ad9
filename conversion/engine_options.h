// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct EngineSettings;

/// The number the engine knows a stored word mode by; 0 for a mode that does not exist.
[[nodiscard]] int engineWordMode(int stored);

/// The engine's code of a stored compression; empty for those that send no option.
[[nodiscard]] QString engineCompression(int stored);

/// The engine option string for an output extension (with its dot, case-sensitive): fourteen fragments joined by single
/// spaces, empty ones included, every token in double quotes and nothing escaped.
[[nodiscard]] QString engineOptions(const EngineSettings &settings, const QString &extension);
