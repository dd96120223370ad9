// SPDX-License-Identifier: GPL-3.0-or-later
#include "common_properties.h"

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

using Attribute = Attributes::value_type;

constexpr QLatin1String paragraphProperties("style:paragraph-properties");
constexpr QLatin1String textProperties("style:text-properties");

QString valueOf(const Element &element, QLatin1String name)
{
    const auto found = std::find_if(element.attributes.begin(), element.attributes.end(), [&](const Attribute &each) {
        return each.first == name;
    });
    return found == element.attributes.end() ? QString() : found->second;
}

/// Two attributes with the same property exclude each other.
QLatin1String propertyOf(const Attribute &attribute)
{
    return attribute.first == "style:line-height-at-least"_L1 ? "fo:line-height"_L1 : attribute.first;
}

/// The values of the properties in the automatic styles of a named one, and how often they are used.
class Values
{
public:
    void add(const Attributes &attributes, int uses)
    {
        ++m_styles;
        for (const Attribute &attribute : attributes) {
            Property &property = m_properties[propertyOf(attribute)];
            ++property.styles;
            property.uses[{attribute.first, attribute.second}] += uses;
        }
    }

    /// Returns the most frequent value of each property that all of them have; in case of a tie, the first one in
    /// alphabetical order.
    Attributes common() const
    {
        Attributes attributes;
        for (const auto &[name, property] : m_properties) {
            if (property.styles != m_styles) {
                continue;
            }
            const auto most =
                std::max_element(property.uses.begin(), property.uses.end(), [](const auto &a, const auto &b) {
                    return a.second < b.second;
                });
            attributes.emplace_back(most->first.first, most->first.second);
        }
        return attributes;
    }

private:
    struct Property
    {
        int styles = 0;
        std::map<std::pair<QLatin1String, QString>, int> uses;
    };

    int m_styles = 0;
    std::map<QLatin1String, Property> m_properties;
};

QString parentOf(const Element &style)
{
    const bool ofParagraph = valueOf(style, "style:family"_L1) == "paragraph"_L1;
    return ofParagraph ? valueOf(style, "style:parent-style-name"_L1) : QString();
}

Attributes attributesOf(const Element &style, QLatin1String child)
{
    const auto found = std::find_if(
        style.children.begin(), style.children.end(), [&](const Element &each) { return each.name == child; });
    return found == style.children.end() ? Attributes{} : found->attributes;
}

const CommonProperties *findProperties(const std::vector<CommonProperties> &common, const QString &style)
{
    const auto found = std::find_if(
        common.begin(), common.end(), [&](const CommonProperties &properties) { return properties.style == style; });
    return found == common.end() ? nullptr : &*found;
}

void removeAttributes(Attributes &attributes, const Attributes &common)
{
    const auto isCommon = [&](const Attribute &each) {
        return std::find(common.begin(), common.end(), each) != common.end();
    };
    attributes.erase(std::remove_if(attributes.begin(), attributes.end(), isCommon), attributes.end());
}

} // namespace

std::vector<CommonProperties> commonProperties(const std::vector<UsedStyle> &styles, const std::vector<Element> &named)
{
    std::set<QString> names;
    for (const Element &style : named) {
        const QString name = valueOf(style, "style:name"_L1);
        if (!name.isEmpty()) { // default styles have none, and styles without a parent name none
            names.insert(name);
        }
    }
    std::map<QString, std::pair<Values, Values>> values;
    for (const UsedStyle &style : styles) {
        const QString parent = parentOf(style.definition);
        if (names.count(parent) > 0) {
            auto &[paragraph, text] = values[parent];
            paragraph.add(attributesOf(style.definition, paragraphProperties), style.uses);
            text.add(attributesOf(style.definition, textProperties), style.uses);
        }
    }
    std::vector<CommonProperties> common;
    common.reserve(values.size());
    for (const auto &[name, both] : values) {
        common.push_back({name, both.first.common(), both.second.common()});
    }
    return common;
}

Element withoutCommonProperties(const Element &style, const std::vector<CommonProperties> &common)
{
    const CommonProperties *properties = findProperties(common, parentOf(style));
    if (!properties) {
        return style;
    }
    Element rest = style;
    for (Element &child : rest.children) {
        if (child.name == paragraphProperties) {
            removeAttributes(child.attributes, properties->paragraph);
        } else if (child.name == textProperties) {
            removeAttributes(child.attributes, properties->text);
        }
    }
    const auto isEmpty = [](const Element &child) { return child.attributes.empty() && child.children.empty(); };
    rest.children.erase(std::remove_if(rest.children.begin(), rest.children.end(), isEmpty), rest.children.end());
    return rest;
}

Element withCommonProperties(const Element &style, const std::vector<CommonProperties> &common)
{
    Element full = style;
    const CommonProperties *properties = valueOf(style, "style:family"_L1) == "paragraph"_L1
                                             ? findProperties(common, valueOf(style, "style:name"_L1))
                                             : nullptr;
    if (properties) {
        full.children.push_back({paragraphProperties, properties->paragraph});
        full.children.push_back({textProperties, properties->text});
    }
    return full;
}

} // namespace quorra::office
