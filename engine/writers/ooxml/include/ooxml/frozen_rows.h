// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace quorra::office {

/// Returns the part with a sheet with its first `rows` rows frozen: they remain visible when the sheet is scrolled.
/// LibreOffice does not export this without a window. Nothing if there are no such rows, if the sheet has frozen rows
/// already, or if the part is not a sheet.
std::optional<QByteArray> withFrozenRows(const QByteArray &sheet, int rows);

} // namespace quorra::office
