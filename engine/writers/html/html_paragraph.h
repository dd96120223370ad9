// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

class QXmlStreamWriter;

namespace quorra {

/// What surrounds a paragraph.
struct ParagraphContext
{
    model::Style usual; ///< the style of the text around it
    /// The background that it has on the page is missing: text too light for white paper becomes black.
    bool lostBackground = false;
};

/// Writes a paragraph or heading as an element of its own. Preformatted text keeps its columns; lines of a table of
/// contents have their page numbers at the right edge.
void writeHtmlParagraph(QXmlStreamWriter &xml, const model::Paragraph &paragraph, const ParagraphContext &context);

/// Writes the text of a list's entry, into the element that is open, with its mark when the mark counts.
void writeHtmlListText(QXmlStreamWriter &xml, const model::Paragraph &item, const ParagraphContext &context);

/// Writes a paragraph of the header or footer of the page, as the element of that name, at the side where it stands;
/// parts with wide gaps between them lie apart.
void writeHtmlPageHeader(
    QXmlStreamWriter &xml, const QString &element, const model::Page &page, const model::Paragraph &head,
    const ParagraphContext &context);

} // namespace quorra
