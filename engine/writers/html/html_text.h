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

/// What text is written against: its surroundings' look, and how it is broken.
struct TextGround
{
    model::Style look;         ///< what the element around the text says already
    bool heading = false;      ///< bold is the look's, not an element
    bool preformatted = false; ///< '\n' stays what it is; otherwise it becomes a line break element
    /// The text stood on something that is not behind it here: a colour that cannot be seen on white becomes black.
    bool lostBackground = false;
};

/// Writes runs as inline elements: one link around all runs that share it, bold, italic, raised and lowered text, the
/// rest as styles. Blanks at a run's end stand outside its elements, blanks at the end are dropped.
void writeInline(QXmlStreamWriter &xml, const std::vector<model::Run> &runs, const TextGround &ground);

/// Writes the attribute unless there is nothing to say.
void writeStyle(QXmlStreamWriter &xml, const QString &style);
void writeDirection(QXmlStreamWriter &xml, bool rightToLeft);

} // namespace quorra
