// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <span>

/// The controls of the settings dialog that have no effect for an output kind and are disabled when it opens.
enum class DisabledControls { None, PageSize, PageSizeResolutionAndColor };

/// A row of the main window's format list, and how it affects the settings dialog.
struct OutputKind
{
    QLatin1String text; ///< not translated yet
    QLatin1String defaultExtension;
    std::span<const QLatin1String> offeredExtensions; ///< in the order of the settings dialog
    bool hasWordMode = false;
    bool hasImageTab = false;
    DisabledControls disabled = DisabledControls::None;
};

/// All kinds, in the order of the format list.
[[nodiscard]] std::span<const OutputKind> outputKinds();

/// Returns the kind whose row is stored as `row`, in canonical decimal form; null for all other texts.
[[nodiscard]] const OutputKind *outputKindOfStoredRow(const QString &row);

/// Returns the extension stored when `row` is selected; for an invalid row, that of the first kind.
[[nodiscard]] QString defaultExtensionOfRow(int row);

/// Returns the row to select for a saved row number: the number itself if it is valid, otherwise 0.
[[nodiscard]] int selectableRow(int saved);
