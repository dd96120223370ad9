// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QString>

#include <deque>
#include <functional>

namespace quorra::model {

/// The appearance of text.
struct Style
{
    QString family;   ///< "Times New Roman": without subset prefix, weight and slope
    double size = 10; ///< points
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool struckThrough = false;
    bool fixedPitch = false;
    bool serif = false;
    Colour colour = black;

    bool operator==(const Style &) const = default;
};

/// A reference to a style of a StyleTable, which must outlive it. By default it refers to the default style.
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

/// The styles of the text of a document, without duplicates. References stay valid when the table grows or is moved.
class StyleTable
{
public:
    StyleTable() = default;
    StyleTable(StyleTable &&) = default;
    StyleTable &operator=(StyleTable &&) = default;
    StyleTable(const StyleTable &) = delete;
    StyleTable &operator=(const StyleTable &) = delete;

    /// Returns the entry for the style, which is added if it is new.
    StyleRef add(const Style &style);

    /// Changes every style, and with it all text that refers to it.
    void edit(const std::function<void(Style &)> &change);

private:
    std::deque<Style> m_styles;
};

} // namespace quorra::model
