// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

// The size column. Files added through the dialog and files dropped show different texts, on purpose. A size that is
// not above 0 gives empty text. Neither text follows the locale.

/// The size as the list counts it: truncated to a signed 32-bit number.
[[nodiscard]] qint32 listedSize(qint64 bytes);

/// Left-aligned kilobytes with a point, whatever the size.
[[nodiscard]] QString addedSizeText(qint32 bytes);

/// Right-aligned kilobytes or, above 2^20 bytes, megabytes, with a comma.
[[nodiscard]] QString droppedSizeText(qint32 bytes);
