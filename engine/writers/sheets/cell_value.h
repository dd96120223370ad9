// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/number.h"
#include "document/document.h"

#include <QString>

#include <optional>

namespace quorra::office {

/// Returns the text of the cell including list marks, its paragraphs separated by '\n'.
QString cellText(const model::Cell &cell);

/// Returns the number in the cell; nothing if the cell contains other text. A superscript mark of a note is not part of
/// the number ("8,935" with a superscript 3 is not 89353); it becomes part of its suffix, in superscript characters.
std::optional<Number> cellNumber(const model::Cell &cell, NumberStyle style);

} // namespace quorra::office
