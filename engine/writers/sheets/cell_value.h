// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/number.h"
#include "document/document.h"

#include <QString>

#include <optional>

namespace quorra::office {

/// All text of the cell, its paragraphs apart by '\n', list marks included.
QString cellText(const model::Cell &cell);

/// The cell's number. A raised mark of a note behind it is no part of the number: "8,935" with a small 3 is not 89353.
/// The mark goes to the number's suffix, in the small signs that stand for it. Nothing for a cell of other text.
std::optional<Number> cellNumber(const model::Cell &cell, NumberStyle style);

} // namespace quorra::office
