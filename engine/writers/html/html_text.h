// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/xml_element.h"
#include "document/text.h"
#include "html_anchors.h"

#include <QString>

#include <vector>

namespace quorra {

/// Starts an element; the class can be null.
[[nodiscard]] XmlElement startElement(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass = nullptr);

/// Starts an element that is followed by a line break in the file, so that programs that ignore the layout do not join
/// the words of two blocks.
[[nodiscard]] XmlElement startBlock(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass = nullptr);

/// The context of the text in an element.
struct TextContext
{
    model::Style style;        ///< of the element
    bool heading = false;      ///< bold is part of the style, not an element
    bool preformatted = false; ///< '\n' stays as it is; otherwise it becomes a line break element
    /// The background of the text on the page is not output: colours too light for white paper become black.
    bool lostBackground = false;
    HtmlAnchors *anchors = nullptr; ///< what links lead to; without them there are no links
};

/// Writes runs as inline elements: links (one for all consecutive runs with the same target), bold, italic, superscript
/// and subscript; other styles as attributes. Marks of notes are links to the notes. Spaces at the end of a run follow
/// its elements; those at the end of the text are removed.
void writeInline(QXmlStreamWriter &xml, const std::vector<model::Run> &runs, const TextContext &context);

/// Write the attribute style, dir or id unless it would be empty.
void writeStyle(QXmlStreamWriter &xml, const QString &style);
void writeDirection(QXmlStreamWriter &xml, bool rightToLeft);

/// Writes the attribute for text in another language than that of the document; nothing for an empty tag.
void writeLanguage(QXmlStreamWriter &xml, const QString &tag);
void writeId(QXmlStreamWriter &xml, const QString &id);

} // namespace quorra
