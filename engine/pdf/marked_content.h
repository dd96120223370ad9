// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pdf/structure.h"

#include <cstddef>
#include <vector>

class Dict;

namespace quorra {

/// Follows the marked content of a page while it is interpreted and finds, for what is drawn, the element of the
/// structure tree it belongs to.
///
/// The library announces the end of every piece of marked content, but the beginning only of those whose properties
/// are in the content stream itself. Ends without a beginning are ignored: text after one counts as untagged at
/// worst.
class MarkedContent
{
public:
    /// Content that belongs to no element, and content that is marked as an artifact.
    static constexpr int none = -1;
    static constexpr int artifact = -2;

    /// The structure must outlive the object; with null or an empty one nothing belongs to anything.
    explicit MarkedContent(const Structure *structure);

    bool isUsed() const { return m_structure != nullptr; }

    void beginPage(int page);
    void begin(const char *name, Dict *properties);
    void end();
    void beginForm(int objectNumber) { m_forms.push_back(objectNumber); }
    void endForm();

    /// To be called for all text in the order in which it is drawn: its length in bytes of the content stream.
    void addText(int bytes);

    /// What the text belongs to that begins at this byte, counted as in TextWord::getCharPos: a place in
    /// TagTree::contents, or one of the constants above.
    int ofText(int position) const;

    /// What is drawn now belongs to.
    int current() const { return m_open.empty() ? none : m_open.back(); }

private:
    /// Text from one position to the next part's.
    struct Part
    {
        int begin = 0;
        int content = none;
    };

    const Structure *m_structure;
    int m_page = 0;
    int m_position = 0;
    std::vector<int> m_open;
    std::size_t m_dropped = 0; ///< open ones that are nested too deeply to be kept
    std::vector<int> m_forms;
    std::vector<Part> m_parts;
};

} // namespace quorra
