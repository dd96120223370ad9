// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/paragraph_borders.h"

class QXmlStreamWriter;

namespace quorra {

/// What surrounds a paragraph.
struct ParagraphGround
{
    model::Style usual;            ///< the look of the text around it
    office::Decoration decoration; ///< separator lines; its background is the surrounding element's
    /// It stood on something that is not behind it here: text too light for white paper becomes black.
    bool lostBackground = false;
};

/// Writes a paragraph or heading as an element of its own. Listings keep their columns; lines of a table of contents
/// have their page numbers at the right edge.
void writeHtmlParagraph(QXmlStreamWriter &xml, const model::Paragraph &paragraph, const ParagraphGround &ground);

/// Writes the text of a list's entry, into the element that is open, with its mark when the mark counts.
void writeHtmlListText(QXmlStreamWriter &xml, const model::Paragraph &item, const ParagraphGround &ground);

/// Writes a running head of the page at the side where it stands; parts with wide gaps between them lie apart.
void writeHtmlRunningHead(
    QXmlStreamWriter &xml, const model::Page &page, const model::Paragraph &head, const ParagraphGround &ground);

} // namespace quorra
