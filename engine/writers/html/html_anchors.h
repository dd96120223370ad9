// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QSet>
#include <QString>

namespace quorra {

/// The elements of the file that links lead to: pages, notes, and the places in the text that refer to notes.
class HtmlAnchors
{
public:
    explicit HtmlAnchors(const model::Document &document);

    /// Returns the value of the attribute href for a Word::link; empty if the address is unsafe, or the page is not
    /// part of the document.
    QString address(const QString &link) const;

    bool hasNote(model::NoteId note) const { return m_notes.contains(number(note)); }

    /// Marks the note as referred to. Returns the id for the element of the reference; empty if an earlier one has it.
    QString addReference(model::NoteId note);
    bool hasReference(model::NoteId note) const { return m_references.contains(number(note)); }

    static QString pageId(int page);
    static QString noteId(model::NoteId note);
    static QString referenceId(model::NoteId note);

private:
    static std::size_t number(model::NoteId note) { return static_cast<std::size_t>(note); }

    QSet<int> m_pages;
    QSet<std::size_t> m_notes;
    QSet<std::size_t> m_references;
};

} // namespace quorra
