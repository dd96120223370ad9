// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_styles.h"

#include "base/xml_element.h"
#include "base/xml_text.h"
#include "common_properties.h"
#include "document/font_family.h"
#include "odf/font_widths.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

void writeElement(QXmlStreamWriter &xml, const Element &element)
{
    const XmlElement open(xml, element.name);
    for (const auto &[name, value] : element.attributes) {
        xml.writeAttribute(name, value);
    }
    for (const Element &child : element.children) {
        writeElement(xml, child);
    }
    if (!element.text.isEmpty()) {
        xml.writeCharacters(element.text);
    }
}

QString pt(double points)
{
    if (!std::isfinite(points)) {
        return u"0pt"_s;
    }
    return QString::number(points, 'f', 2) + "pt"_L1;
}

namespace {

/// Returns the serialised definition, the key of the table.
QByteArray keyOf(const Element &element)
{
    QByteArray key(element.name.data(), element.name.size());
    for (const auto &[name, value] : element.attributes) {
        key += '\0';
        key.append(name.data(), name.size());
        key += '=';
        key += value.toUtf8();
    }
    for (const Element &child : element.children) {
        key += '\1';
        key += keyOf(child);
        key += '\2';
    }
    key += element.text.toUtf8();
    return key;
}

} // namespace

QString officeFamily(const model::Style &style)
{
    return model::isTypesettingFace(style.family) ? measuredFamily(style) : xmlText(style.family);
}

Attributes textAttributes(const model::Style &style)
{
    const QString size = QString::number(style.size > 0 ? style.size : defaultFontSize, 'f', 1) + "pt"_L1;
    const QString weight = style.bold ? u"bold"_s : u"normal"_s;
    const QString slant = style.italic ? u"italic"_s : u"normal"_s;
    Attributes attributes;
    if (!style.family.isEmpty()) {
        const QString family = officeFamily(style);
        attributes = {
            {"style:font-name"_L1, family},
            {"style:font-name-asian"_L1, family},
            {"style:font-name-complex"_L1, family}};
    }
    attributes.insert(
        attributes.end(), {{"fo:font-size"_L1, size},
                           {"style:font-size-asian"_L1, size},
                           {"style:font-size-complex"_L1, size},
                           {"fo:font-weight"_L1, weight},
                           {"style:font-weight-asian"_L1, weight},
                           {"style:font-weight-complex"_L1, weight},
                           {"fo:font-style"_L1, slant},
                           {"style:font-style-asian"_L1, slant},
                           {"style:font-style-complex"_L1, slant},
                           {"fo:color"_L1, colourName(style.colour)}});
    if (style.underlined) {
        attributes.emplace_back("style:text-underline-style"_L1, u"solid"_s);
        attributes.emplace_back("style:text-underline-width"_L1, u"auto"_s);
        attributes.emplace_back("style:text-underline-color"_L1, u"font-color"_s);
    }
    if (style.struckThrough) {
        attributes.emplace_back("style:text-line-through-style"_L1, u"solid"_s);
        attributes.emplace_back("style:text-line-through-type"_L1, u"single"_s);
    }
    return attributes;
}

SizedFont sizedFont(const model::Style &style)
{
    return {style.family, style.bold, style.italic, std::lround(2 * style.size)};
}

Attributes StyleTable::textLook(const model::Style &style) const
{
    Attributes attributes = textAttributes(style);
    if (!m_widthScales.empty()) { // all text has the attribute then, so that named styles can carry it
        const auto found = m_widthScales.find(sizedFont(style));
        const double scale = found == m_widthScales.end() ? 1 : found->second;
        attributes.emplace_back("style:text-scale"_L1, QString::number(std::lround(100 * scale)) + u'%');
    }
    return attributes;
}

Attributes languageAttributes(const QString &tag)
{
    static const QStringList asian = {u"ja"_s, u"ko"_s, u"zh"_s};
    static const QStringList complex = {u"ar"_s, u"bn"_s, u"dv"_s, u"fa"_s, u"gu"_s, u"he"_s, u"hi"_s, u"km"_s,
                                        u"kn"_s, u"lo"_s, u"ml"_s, u"mr"_s, u"my"_s, u"ne"_s, u"pa"_s, u"ps"_s,
                                        u"ta"_s, u"te"_s, u"th"_s, u"ug"_s, u"ur"_s, u"yi"_s};
    constexpr qsizetype countryLength = 2;
    const QStringList parts = tag.split(u'-');
    const QString language = parts.front().toLower();
    if (language.isEmpty()) {
        return {};
    }
    const auto country =
        std::find_if(parts.begin() + 1, parts.end(), [](const QString &part) { return part.size() == countryLength; });
    const QString countryName = country == parts.end() ? u"none"_s : country->toUpper();
    if (asian.contains(language)) {
        return {{"style:language-asian"_L1, language}, {"style:country-asian"_L1, countryName}};
    }
    if (complex.contains(language)) {
        return {{"style:language-complex"_L1, language}, {"style:country-complex"_L1, countryName}};
    }
    return {{"fo:language"_L1, language}, {"fo:country"_L1, countryName}};
}

QString StyleTable::name(const Element &definition)
{
    const auto [place, isNew] = m_places.emplace(keyOf(definition), m_styles.size());
    QString name = u"a%1"_s.arg(place->second + 1);
    if (isNew) {
        Element named = definition;
        named.attributes.insert(named.attributes.begin(), {"style:name"_L1, name});
        m_styles.push_back({std::move(named), 0});
    }
    ++m_styles[place->second].uses;
    return name;
}

QString StyleTable::text(const model::Style &style)
{
    noteFont(style);
    return name(
        {"style:style"_L1, {{"style:family"_L1, u"text"_s}}, {{"style:text-properties"_L1, textLook(style), {}}}});
}

QString StyleTable::graphic(const Attributes &properties, QLatin1String parent)
{
    Element style{
        "style:style"_L1, {{"style:family"_L1, u"graphic"_s}}, {{"style:graphic-properties"_L1, properties, {}}}};
    if (!parent.isEmpty()) {
        style.attributes.emplace_back("style:parent-style-name"_L1, parent);
    }
    return name(style);
}

void StyleTable::noteFont(const model::Style &style)
{
    const QString family = officeFamily(style);
    if (family.isEmpty() || m_families.contains(family)) {
        return;
    }
    m_families.insert(family);
    QString quoted = family;
    quoted.replace(u'\'', u' ');
    // The kind of the font lets word processors that lack it choose a similar one.
    const model::FontKind kind = fontKind(style);
    const QString generic = kind == model::FontKind::FixedPitch ? u"modern"_s
                            : kind == model::FontKind::Serif    ? u"roman"_s
                                                                : u"swiss"_s;
    m_fonts.push_back(
        {"style:font-face"_L1,
         {{"style:name"_L1, family},
          {"svg:font-family"_L1, u"'"_s + quoted + u'\''},
          {"style:font-family-generic"_L1, generic},
          {"style:font-pitch"_L1, style.fixedPitch ? u"fixed"_s : u"variable"_s}},
         {}});
}

void StyleTable::writeFonts(QXmlStreamWriter &xml) const
{
    for (const Element &element : m_fonts) {
        writeElement(xml, element);
    }
}

void StyleTable::writeStyles(QXmlStreamWriter &xml, const std::vector<Element> &named) const
{
    const std::vector<CommonProperties> common = commonProperties(m_styles, named);
    {
        const XmlElement styles(xml, "office:styles"_L1);
        for (const Element &style : named) {
            writeElement(xml, withCommonProperties(style, common));
        }
    }
    const XmlElement automatic(xml, "office:automatic-styles"_L1);
    for (const UsedStyle &style : m_styles) {
        writeElement(xml, withoutCommonProperties(style.definition, common));
    }
}

} // namespace quorra::office
