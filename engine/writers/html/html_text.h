// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/xml_element.h"
#include "document/text.h"

#include <QString>

#include <vector>

namespace quorra {

/// Starts an element; the class may be null.
[[nodiscard]] XmlElement startElement(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass = nullptr);

/// Starts an element whose end also ends its line of the file, so that programs that know no blocks do not join the
/// words of two.
[[nodiscard]] XmlElement startBlock(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass = nullptr);

/// What the text of an element is written into.
struct TextContext
{
    model::Style style;        ///< of the element around the text
    bool heading = false;      ///< bold is part of the style, not an element
    bool preformatted = false; ///< '\n' stays as it is; otherwise it becomes a line break element
    /// The background that the text has on the page is missing: colours too light for white paper become black.
    bool lostBackground = false;
};

/// Writes runs as inline elements: one link around all runs that share it, bold, italic, super- and subscript; the rest
/// as style attributes. Spaces at the end of a run stand after its elements, those at the end of the text are dropped.
void writeInline(QXmlStreamWriter &xml, const std::vector<model::Run> &runs, const TextContext &context);

/// Writes the attribute unless it is empty.
void writeStyle(QXmlStreamWriter &xml, const QString &style);
void writeDirection(QXmlStreamWriter &xml, bool rightToLeft);

} // namespace quorra
