// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Output extensions and the numbers they are stored under.

/// The extension, with its dot, of an output extension index; empty text for an index that names none.
[[nodiscard]] QString extensionOfIndex(int index);

/// The index of an extension by exact, case-sensitive comparison; the first match wins. -1 when nothing matches.
[[nodiscard]] int indexOfExtension(const QString &extension);
