// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QString>

#include <deque>
#include <functional>

namespace quorra::model {

/// How a piece of text looks.
struct Style
{
    QString family;   ///< "Times New Roman", without subset prefix and without Bold, Italic and the like
    double size = 10; ///< points
    bool bold = false;
    bool italic = false;
    bool fixedPitch = false;
    bool serif = false;
    Colour colour = black;

    bool operator==(const Style &) const = default;
};

/// A style of a StyleTable, which must outlive it. By default the style of text that says nothing.
class StyleRef
{
public:
    StyleRef();

    const Style &operator*() const { return *m_style; }
    const Style *operator->() const { return m_style; }
    bool operator==(const StyleRef &other) const { return m_style == other.m_style || *m_style == *other.m_style; }

private:
    friend class StyleTable;
    explicit StyleRef(const Style *style) : m_style(style) {}

    const Style *m_style;
};

/// The styles of a document's text, each once. What words refer to stays where it is while the table grows or is moved.
class StyleTable
{
public:
    StyleTable() = default;
    StyleTable(StyleTable &&) = default;
    StyleTable &operator=(StyleTable &&) = default;
    StyleTable(const StyleTable &) = delete;
    StyleTable &operator=(const StyleTable &) = delete;

    /// The style as an entry of the table.
    StyleRef add(const Style &style);

    /// Changes every style: all text that refers to it looks changed.
    void edit(const std::function<void(Style &)> &change);

private:
    std::deque<Style> m_styles;
};

} // namespace quorra::model
