// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/number.h"
#include "document/document.h"
#include "document/text.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorra::office {

/// Returns the lines that the text of the cell consists of, wherever they wrap, with the marks of list items and with
/// spaces for tabs, which cells do not have.
std::vector<std::vector<model::Run>> cellLines(const model::Cell &cell);

/// Returns the same as text, the lines separated by '\n'.
QString cellText(const model::Cell &cell);

/// Returns the number in the cell; nothing if the cell contains other text. A superscript mark of a note is not part of
/// the number ("8,935" with a superscript 3 is not 89353); it becomes part of its suffix, in superscript characters.
std::optional<Number> cellNumber(const model::Cell &cell, NumberStyle style);

} // namespace quorra::office
