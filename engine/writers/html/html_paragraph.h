// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

class QXmlStreamWriter;

namespace quorra {

/// The context of a paragraph.
struct ParagraphContext
{
    model::Style usual; ///< the style of the text around it
    /// Its background on the page is not output: text too light for white paper becomes black.
    bool lostBackground = false;
};

/// Writes a paragraph or heading as an element. Preformatted text keeps its columns; the page numbers of a table of
/// contents are at the right edge.
void writeHtmlParagraph(QXmlStreamWriter &xml, const model::Paragraph &paragraph, const ParagraphContext &context);

/// Returns true if the mark of the item carries meaning: a number or a check box.
bool showsMark(const model::ListItem &item);

/// Writes the text of a list item into the open element, with its mark if showsMark().
void writeHtmlListText(QXmlStreamWriter &xml, const model::Paragraph &item, const ParagraphContext &context);

/// Writes a paragraph of the page header or footer as an element of this name, aligned as on the page. Parts with wide
/// gaps between them remain apart.
void writeHtmlPageHeader(
    QXmlStreamWriter &xml, const QString &element, const model::Page &page, const model::Paragraph &header,
    const ParagraphContext &context);

} // namespace quorra
