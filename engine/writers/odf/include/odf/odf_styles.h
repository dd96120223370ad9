// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QHash>
#include <QLatin1String>
#include <QSet>
#include <QString>
#include <QXmlStreamWriter>

#include <utility>
#include <vector>

// What the writers of flat ODF files share: elements as plain data, and the table of automatic styles.
namespace quorra::office {

/// The font size in points of text that has none.
inline constexpr double defaultFontSize = 10;

/// The width in points of the thinnest line; thinner ones vanish in word processors.
inline constexpr double thinnestLine = 0.25;

using Attributes = std::vector<std::pair<QLatin1String, QString>>;

/// An XML element as plain data: the definition of a style or a part of one.
struct Element
{
    QLatin1String name;
    Attributes attributes = {};
    std::vector<Element> children = {};
    QString text = {}; ///< after the children
};

/// Writes the element with all that is in it.
void writeElement(QXmlStreamWriter &xml, const Element &element);

/// Points as an ODF length: "12.35pt". Anything that is no finite number gives "0pt".
QString pt(double points);

/// The family as a word processor may know it: the numbered faces of typesetting systems, which exist only inside PDF
/// files, give way to the common face of their kind.
QString officeFamily(const model::Style &style);

/// The attributes of style:text-properties for text of this style.
Attributes textAttributes(const model::Style &style);

/// The automatic styles of one file. Equal definitions share one name.
class StyleTable
{
public:
    /// The name of a style like this; definition has no style:name yet. Styles that refer to others by name must be
    /// asked for after those.
    QString name(const Element &definition);

    /// Shortcuts for the commonest families. Parent names a style of the file's fixed part; empty for none.
    QString text(const model::Style &style);
    QString graphic(const Attributes &properties, QLatin1String parent);

    /// Declares the style's font family; to be called for every family that a style names.
    void noteFont(const model::Style &style);

    /// The declarations of all families, and the definitions of all styles, seen so far.
    void writeFonts(QXmlStreamWriter &xml) const;
    void writeStyles(QXmlStreamWriter &xml) const;

private:
    QHash<QByteArray, QString> m_names;
    std::vector<Element> m_styles;
    std::vector<Element> m_fonts;
    QSet<QString> m_families;
};

} // namespace quorra::office
