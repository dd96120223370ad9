// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <span>

/// The controls of the settings dialog that make no sense for a kind of output and are disabled when it opens.
enum class DisabledControls { None, PageSize, PageSizeResolutionAndColor };

/// One row of the main window's format list and what it means to the settings dialog.
struct OutputKind
{
    QLatin1String text; ///< not translated yet
    QLatin1String defaultExtension;
    std::span<const QLatin1String> offeredExtensions; ///< the settings dialog's choice, in its order
    bool hasWordMode = false;
    bool hasImageTab = false;
    DisabledControls disabled = DisabledControls::None;
};

/// All kinds, in the order of the format list.
[[nodiscard]] std::span<const OutputKind> outputKinds();

/// The kind whose row is stored as `row` (exactly its decimal text); null for every other text.
[[nodiscard]] const OutputKind *outputKindOfStoredRow(const QString &row);

/// The extension that selecting `row` stores; a row outside the list takes the first kind's.
[[nodiscard]] QString defaultExtensionOfRow(int row);

/// The row to select for a saved row number: the number itself when the list has it, otherwise 0.
[[nodiscard]] int selectableRow(int saved);
