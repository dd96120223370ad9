// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Returns the private folder of the user that is used if the program folder is not writable. It need not exist.
QString userWorkingFolder();

/// Returns the working folder, which contains the settings file and the engine. This is `programFolder`, the folder of
/// the executable, if it is writable. Otherwise, as in a system-wide installation, it is `userFolder`, which is created
/// if necessary, with access for its owner only and a link to the engine in `programFolder`. If that fails, too, it is
/// `programFolder`: the program then works, but does not save settings.
QString workingFolder(const QString &programFolder, const QString &userFolder);
