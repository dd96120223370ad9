// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Output naming and the command that starts the engine for one file.

/// The path of the engine in `folder`.
[[nodiscard]] QString enginePathIn(const QString &folder);

/// The name of a file, without its folder, up to its first dot.
[[nodiscard]] QString baseNameOf(const QString &inputPath);

/// The output file of an input: output folder, "/", base name, `suffix`, extension (with its dot, or empty).
[[nodiscard]] QString
outputPathOf(const QString &outputFolder, const QString &inputPath, const QString &suffix, const QString &extension);

/// The options of one run of the engine: the option string, with one switch more for XML output.
[[nodiscard]] QString optionsForExtension(const QString &options, const QString &extension);

/// The whole command as one string, to be split into arguments at spaces outside double quotes. Nothing is escaped.
[[nodiscard]] QString
engineCommand(const QString &enginePath, const QString &options, const QString &inputPath, const QString &outputPath);
