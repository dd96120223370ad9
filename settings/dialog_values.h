// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <span>

// Conversions between stored texts and the contents of the settings dialog's controls. Text that is not a decimal
// integer is treated as 0.
namespace dialogValues {

/// The rows of the dialog's fixed lists, untranslated.
[[nodiscard]] std::span<const QLatin1String> wordModeTexts();
[[nodiscard]] std::span<const QLatin1String> compressionTexts();

/// The colour depths available for an output extension (with its dot, case-sensitive): JPEG has no one-bit variant.
[[nodiscard]] std::span<const QLatin1String> colorDepthTexts(const QString &extension);

/// The row of "24 Bits" in the list returned by colorDepthTexts() for the same extension.
[[nodiscard]] int fullColorRow(const QString &extension);

/// Page field: the stored number in canonical form ("7" for "007"), empty below 1.
[[nodiscard]] QString pageField(const QString &stored);

/// Size or resolution field: the stored text unchanged, empty if its number is below 1.
[[nodiscard]] QString sizeField(const QString &stored);

/// Password field, and stored password: the text unchanged, empty if it contains only white space.
[[nodiscard]] QString passwordText(const QString &text);

/// The row to select for a stored word mode, colour depth or compression in a list of `count` rows. If the result is
/// `count` or more, nothing is selected.
[[nodiscard]] int wordModeRow(int stored, int count);
[[nodiscard]] int colorDepthRow(const QString &stored, int count);
[[nodiscard]] int compressionRow(const QString &stored, int count);

/// Stored page: the number in the field if it is above 0, otherwise "".
[[nodiscard]] QString storedPage(const QString &field);

/// Stored size or resolution: the number in the field if it is above 0, otherwise "0".
[[nodiscard]] QString storedSize(const QString &field);

/// Stored colour depth for the selected row (-1 for none): always counted from "1 Bit", whichever list is shown.
[[nodiscard]] QString storedColorDepth(int row, const QString &extension);

} // namespace dialogValues
