// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace quorra::office {

/// Returns the part with a slide with the margins above and below the text of table cells, which LibreOffice writes
/// only into the cell's text, where programs ignore them and add 3.6 points each. Nothing if there is nothing to add.
std::optional<QByteArray> withCellMargins(const QByteArray &slide);

} // namespace quorra::office
