// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <span>

// How the settings dialog turns stored texts into what its controls show, and back. Text that is no whole decimal
// number counts as 0 everywhere.
namespace dialogValues {

/// The rows of the dialog's fixed lists, not translated yet.
[[nodiscard]] std::span<const QLatin1String> wordModeTexts();
[[nodiscard]] std::span<const QLatin1String> compressionTexts();

/// The colour depths offered for an output extension (with its dot, case-sensitive): JPEG has no one-bit form.
[[nodiscard]] std::span<const QLatin1String> colorDepthTexts(const QString &extension);

/// The row of "24 Bits" in the list that colorDepthTexts() gives for the same extension.
[[nodiscard]] int fullColorRow(const QString &extension);

/// Page field: the stored number written afresh ("007" shows as "7"), empty below 1.
[[nodiscard]] QString pageField(const QString &stored);

/// Size or resolution field: the stored text as it stands, empty when its number is below 1.
[[nodiscard]] QString sizeField(const QString &stored);

/// Password field, and stored password: the text as it stands, empty when it holds nothing but blanks.
[[nodiscard]] QString passwordText(const QString &text);

/// Row to select for a stored word mode, colour depth or compression in a list of `count` rows. A result of `count`
/// or more leaves the list without a selection.
[[nodiscard]] int wordModeRow(int stored, int count);
[[nodiscard]] int colorDepthRow(const QString &stored, int count);
[[nodiscard]] int compressionRow(const QString &stored, int count);

/// Stored page: the field's number in decimal when above 0, otherwise "".
[[nodiscard]] QString storedPage(const QString &field);

/// Stored size or resolution: the field's number in decimal when above 0, otherwise "0".
[[nodiscard]] QString storedSize(const QString &field);

/// Stored colour depth for the selected row (-1: none): counted from "1 Bit" whatever list was shown.
[[nodiscard]] QString storedColorDepth(int row, const QString &extension);

} // namespace dialogValues
