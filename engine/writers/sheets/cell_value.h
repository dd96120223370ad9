// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/number.h"
#include "document/document.h"
#include "document/text.h"
#include "sheet_date.h"

#include <QString>
#include <QStringList>
#include <QXmlStreamWriter>

#include <optional>
#include <variant>
#include <vector>

namespace quorra::office {

/// Returns the lines that the text of the cell consists of, wherever they wrap, with the marks of list items and with
/// spaces for tabs, which cells do not have.
std::vector<std::vector<model::Run>> cellLines(const model::Cell &cell);

/// Returns the same as text, the lines separated by '\n'.
QString cellText(const model::Cell &cell);

/// Returns the number in the cell; nothing if the cell contains other text. A superscript mark of a note is not part of
/// the number ("8,935" with a superscript 3 is not 89353); it becomes part of its suffix, in superscript characters.
std::optional<Number> cellNumber(const model::Cell &cell, const NumberHabits &habits);

/// How a document, or a table of it, writes numbers and dates.
struct CellHabits
{
    NumberHabits numbers;
    DateHabits dates;
};

/// Returns the habits that the texts of a document's cells show; the language is a language tag or empty.
CellHabits cellHabits(const QStringList &texts, const QString &language);

/// Returns the habits of a table: those of its own cells, as far as they show any, otherwise those of the document.
CellHabits tableHabits(const QStringList &texts, const CellHabits &document);

/// What a cell contains: a number, a date, or text.
using CellValue = std::variant<std::monostate, Number, SheetDate>;

/// Returns the value of the cell; text for all that may be something else.
CellValue cellValue(const model::Cell &cell, const CellHabits &habits);

/// Returns the name of the data style that formats the value; empty for text.
QString dataStyle(StyleTable &styles, const CellValue &value);

/// Writes the attributes of a cell for the value; none for text.
void writeValue(QXmlStreamWriter &xml, const CellValue &value);

} // namespace quorra::office
