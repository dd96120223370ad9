// SPDX-License-Identifier: GPL-3.0-or-later
#include "marked_content.h"

#include <Object.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace quorra {

namespace {

constexpr std::size_t deepest = 256; // real content is nested in two or three levels

} // namespace

MarkedContent::MarkedContent(const Structure *structure)
    : m_structure(structure && !structure->tree.isEmpty() ? structure : nullptr)
{}

void MarkedContent::beginPage(int page)
{
    m_page = page;
    m_position = 0;
    m_open.clear();
    m_dropped = 0;
    m_forms.clear();
    m_parts.clear();
}

void MarkedContent::begin(const char *name, Dict *properties)
{
    if (!m_structure) {
        return;
    }
    if (m_open.size() >= deepest) {
        ++m_dropped;
        return;
    }
    int content = current();
    int id = -1;
    if (properties && properties->lookupInt("MCID", nullptr, &id) && id >= 0) {
        content = m_structure->contentOf(m_page, m_forms.empty() ? 0 : m_forms.back(), id);
    } else if (std::strcmp(name, "Artifact") == 0) {
        content = artifact;
    }
    m_open.push_back(content);
}

void MarkedContent::end()
{
    if (m_dropped > 0) {
        --m_dropped;
    } else if (!m_open.empty()) {
        m_open.pop_back();
    }
}

void MarkedContent::endForm()
{
    if (!m_forms.empty()) {
        m_forms.pop_back();
    }
}

void MarkedContent::addText(int bytes)
{
    if (m_structure && (m_parts.empty() || m_parts.back().content != current())) {
        m_parts.push_back({m_position, current()});
    }
    m_position += bytes;
}

int MarkedContent::ofText(int position) const
{
    const auto after = std::upper_bound(
        m_parts.begin(), m_parts.end(), position, [](int at, const Part &part) { return at < part.begin; });
    return after == m_parts.begin() ? none : std::prev(after)->content;
}

} // namespace quorra
