// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/tags.h"
#include "pdf/pdf_file.h"

#include <cstdint>
#include <unordered_map>

namespace quorra {

/// The structure tree of a file, with the names that content streams use for the pieces of their content.
class Structure
{
public:
    /// The place in TagTree::contents of a piece of marked content; -1 for one that no element refers to. `form` is the
    /// object number of the form that the content is part of, 0 for the page's own content.
    int contentOf(int page, int form, int id) const;

    /// What is read aloud in place of the figure or formula that the piece of content belongs to; empty for none.
    QString alternativeOf(int content) const;

    model::TagTree tree;

private:
    friend class StructureReader;

    static std::uint64_t key(int stream, int id);

    std::unordered_map<std::uint64_t, int> m_ofPages; ///< by page
    std::unordered_map<std::uint64_t, int> m_ofForms; ///< by the form's object number
};

/// Reads the structure tree; the content of pages outside of the range is left out. Returns an empty one for a file
/// without tags, and for one whose tree is not sound: with elements inside themselves, nested too deeply, or more of
/// them than any real document has.
Structure readStructure(PdfFile &file, int firstPage, int pageCount);

} // namespace quorra
