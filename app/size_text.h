// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

// The texts of the size column. They are different for files added with the dialog and for dropped files, on purpose.
// The text is empty if the size is not above 0. Both are independent of the locale.

/// Returns the size as shown in the list: truncated to a signed 32-bit number.
[[nodiscard]] qint32 listedSize(qint64 bytes);

/// Left-aligned, always in kilobytes, with a decimal point.
[[nodiscard]] QString addedSizeText(qint32 bytes);

/// Right-aligned, in kilobytes or, above 2^20 bytes, in megabytes, with a decimal comma.
[[nodiscard]] QString droppedSizeText(qint32 bytes);
