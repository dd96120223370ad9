// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QLatin1String>
#include <QSet>
#include <QString>
#include <QXmlStreamWriter>

#include <map>
#include <tuple>
#include <utility>
#include <vector>

// Shared by the writers of flat ODF files: elements as plain data, and the table of automatic styles.
namespace quorra::office {

/// The font size in points of text that has none.
inline constexpr double defaultFontSize = 10;

/// The minimum width of a line in points; thinner ones are invisible in word processors.
inline constexpr double minLineWidth = 0.25;

using Attributes = std::vector<std::pair<QLatin1String, QString>>;

/// An XML element as plain data: the definition of a style or a part of one.
struct Element
{
    QLatin1String name;
    Attributes attributes = {};
    std::vector<Element> children = {};
    QString text = {}; ///< after the children
};

/// Writes the element with its children.
void writeElement(QXmlStreamWriter &xml, const Element &element);

/// Returns points as an ODF length: "12.35pt"; "0pt" for infinity and NaN.
QString pt(double points);

/// Returns a font family that word processors may have: numbered faces of typesetting systems, which exist only in PDF
/// files, are replaced by the common family of their kind.
QString officeFamily(const model::Style &style);

/// Returns the attributes of style:text-properties for text of this style.
Attributes textAttributes(const model::Style &style);

/// Returns the attributes for text in the language of this tag; none for an empty tag. ODF has three sets of
/// attributes, for Asian scripts, scripts with complex layout, and all others.
Attributes languageAttributes(const QString &tag);

/// A font at a size.
struct SizedFont
{
    QString family;
    bool bold = false;
    bool italic = false;
    long halfPoints = 0;

    bool operator<(const SizedFont &other) const
    {
        return std::tie(family, bold, italic, halfPoints) <
               std::tie(other.family, other.bold, other.italic, other.halfPoints);
    }
};

/// Returns the font of the style at its size.
SizedFont sizedFont(const model::Style &style);

/// The factors by which characters are narrower than in the font; 1 for fonts that are not listed.
using WidthScales = std::map<SizedFont, double>;

/// An automatic style and how often it is used.
struct UsedStyle
{
    Element definition;
    int uses = 0;
};

/// The automatic styles of a file. Equal definitions have the same name.
class StyleTable
{
public:
    /// Returns the name of a style with this definition, which has no style:name. A style that refers to others by name
    /// must be requested after them.
    QString name(const Element &definition);

    /// Return the names of a text and a graphic style. `parent` is a fixed style of the file; empty for none.
    QString text(const model::Style &style);
    QString graphic(const Attributes &properties, QLatin1String parent);

    /// Sets the widths of characters for all text from now on.
    void setWidthScales(WidthScales scales) { m_widthScales = std::move(scales); }

    /// Returns textAttributes() of the style and the width of its characters.
    Attributes textLook(const model::Style &style) const;

    /// Declares the font family of the style; must be called for every family that a style refers to.
    void noteFont(const model::Style &style);

    /// Writes the declarations of all families.
    void writeFonts(QXmlStreamWriter &xml) const;

    /// Writes the elements of these named styles and of all automatic ones so far. A named style gets the look that
    /// most paragraphs based on it have; an automatic one keeps what differs from that.
    void writeStyles(QXmlStreamWriter &xml, const std::vector<Element> &named) const;

private:
    std::map<QByteArray, std::size_t> m_places; ///< of the definitions in m_styles
    std::vector<UsedStyle> m_styles;
    std::vector<Element> m_fonts;
    QSet<QString> m_families;
    WidthScales m_widthScales;
};

} // namespace quorra::office
