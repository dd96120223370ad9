// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Output extensions and their indices in the settings file.

/// Returns the extension, with its dot, for an output extension index; empty if the index is invalid.
[[nodiscard]] QString extensionOfIndex(int index);

/// Returns the first index of an extension, compared case-sensitively; -1 if there is none.
[[nodiscard]] int indexOfExtension(const QString &extension);
