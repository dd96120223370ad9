// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "html_anchors.h"
#include "html_page_edges.h"

class QXmlStreamWriter;

namespace quorra {

/// The context of a paragraph.
struct ParagraphContext
{
    model::Style usual; ///< the style of the text around it
    /// Its background on the page is not output: text too light for white paper becomes black.
    bool lostBackground = false;
    HtmlAnchors *anchors = nullptr; ///< what links lead to; without them there are no links
    QString element = QStringLiteral("p");
    QString id = {}; ///< of the element; may be empty
};

/// Writes a paragraph or heading as an element; preformatted text, which keeps its columns, as <pre>. The page numbers
/// of a table of contents are at the right edge. The first word of a note is a link to the place that refers to it.
void writeHtmlParagraph(QXmlStreamWriter &xml, const model::Paragraph &paragraph, const ParagraphContext &context);

/// Returns true if the mark of the item carries meaning: a number or a check box.
bool showsMark(const model::ListItem &item);

/// Writes the text of a list item into the open element, with its mark if showsMark().
void writeHtmlListText(QXmlStreamWriter &xml, const model::Paragraph &item, const ParagraphContext &context);

/// Writes a paragraph of the page header or footer, aligned as on the page. Parts with wide gaps between them remain
/// apart. Page numbers are left out if `leftOut` is not null.
void writeHtmlPageHeader(
    QXmlStreamWriter &xml, const model::Page &page, const model::Paragraph &header, const ParagraphContext &context,
    const HtmlPageNumbers *leftOut);

} // namespace quorra
