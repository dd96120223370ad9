// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/xml_element.h"
#include "document/list_plan.h"
#include "document/text.h"
#include "odf/odf_styles.h"

#include <QString>
#include <QXmlStreamWriter>

#include <map>
#include <vector>

namespace quorra::office {

/// A note that is written at its mark in the text.
struct Note
{
    const model::Paragraph *text = nullptr; ///< begins with the mark
    bool counted = false;                   ///< the mark is the number that automatic numbering gives
};

using Notes = std::map<model::NoteId, Note>;

/// The destination of a document's content: its elements, and the styles that they use.
struct Sink
{
    QXmlStreamWriter &xml;
    StyleTable &styles;
    const Notes *notes = nullptr;           ///< without any, marks and notes are ordinary text
    const model::ListPlan *lists = nullptr; ///< without any, the marks of list items are ordinary text
    bool pageFields = false;                ///< the numbers of pages are counted; otherwise they are ordinary text

    /// Returns the place of the paragraph in its list; null if it is in none.
    const model::ListPlace *listPlace(const model::Paragraph &paragraph) const
    {
        return lists ? lists->find(&paragraph) : nullptr;
    }
};

/// Returns model::linkAddress() for a text document, in which the bookmarks "pageN" mark the beginnings of pages.
QString bookmarkAddress(const QString &link);

/// Begins a link to this target, as bookmarkAddress() gives it.
[[nodiscard]] XmlElement beginLink(QXmlStreamWriter &xml, const QString &target);

/// Writes text inside a paragraph, with elements for consecutive spaces, tabs and line breaks.
void writeText(QXmlStreamWriter &xml, const QString &text);

/// Writes the runs as spans, links, notes and page numbers; runs in the style of the paragraph get no span. Without
/// `withLinks`, links are left out.
void writeRuns(
    const Sink &sink, const std::vector<model::Run> &runs, const model::Style &paragraphStyle, bool withLinks = true);

} // namespace quorra::office
