// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/text_style.h"

#include <algorithm>

namespace quorra::model {

StyleRef::StyleRef()
{
    static const Style plain;
    m_style = &plain;
}

StyleRef StyleTable::add(const Style &style)
{
    // A document has few styles, and text often has the one that was added last.
    const auto known = std::find(m_styles.rbegin(), m_styles.rend(), style);
    return StyleRef(known != m_styles.rend() ? &*known : &m_styles.emplace_back(style));
}

void StyleTable::edit(const std::function<void(Style &)> &change)
{
    std::for_each(m_styles.begin(), m_styles.end(), change);
}

} // namespace quorra::model
