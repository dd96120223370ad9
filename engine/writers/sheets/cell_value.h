// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/number.h"
#include "document/document.h"

#include <QString>

#include <optional>

namespace quorra::office {

/// All text of the cell, its paragraphs separated by '\n', list marks included.
QString cellText(const model::Cell &cell);

/// The cell's number. The superscript mark of a note after it is no part of the number: "8,935" with a superscript 3 is
/// not 89353. The mark goes to the number's suffix, in superscript characters. Nothing for a cell of other text.
std::optional<Number> cellNumber(const model::Cell &cell, NumberStyle style);

} // namespace quorra::office
