// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Output naming and the command that starts the engine for one file.

/// Returns the path of the engine in `folder`.
[[nodiscard]] QString enginePathIn(const QString &folder);

/// Returns the name of a file, without its folder, up to its first dot.
[[nodiscard]] QString baseNameOf(const QString &inputPath);

/// Returns the output path for an input: output folder, "/", base name, `suffix`, extension (with its dot, or empty).
[[nodiscard]] QString
outputPathOf(const QString &outputFolder, const QString &inputPath, const QString &suffix, const QString &extension);

/// Returns the option string, with an additional option for XML output.
[[nodiscard]] QString optionsForExtension(const QString &options, const QString &extension);

/// Returns the command as one string, which is split into arguments at spaces outside double quotes. Nothing is
/// escaped.
[[nodiscard]] QString
engineCommand(const QString &enginePath, const QString &options, const QString &inputPath, const QString &outputPath);
