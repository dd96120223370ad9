// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The folder of the user's own that takes the place of a program folder that cannot be written. It need not exist.
QString userWorkingFolder();

/// The folder to work in, where the settings file and the engine are found by relative names. This is
/// `programFolder`, the executable's own, wherever it can be written. Where it cannot, as in a system-wide
/// installation, settings would be lost and shared: then it is `userFolder`, which is made on demand, readable by its
/// owner alone, and given a link to the engine in `programFolder`. If that fails too, `programFolder` again: the
/// program works there and keeps no settings.
QString workingFolder(const QString &programFolder, const QString &userFolder);
