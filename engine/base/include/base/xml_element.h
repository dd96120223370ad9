// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QXmlStreamWriter>

#include <utility>

namespace quorra {

/// An open XML element: writes its start when it is made and its end when it goes out of scope. Attributes and content
/// go to the writer in between. Elements must go out of scope in the reverse order of their making, as they nest; the
/// writer must live longer.
class XmlElement
{
public:
    /// Starts an element of this name; the text after, if any, is written behind the end of the element.
    XmlElement(QXmlStreamWriter &xml, const QString &name, QString after = {}) : m_xml(&xml), m_after(std::move(after))
    {
        xml.writeStartElement(name);
    }

    XmlElement(XmlElement &&other) noexcept
        : m_xml(std::exchange(other.m_xml, nullptr))
        , m_after(std::move(other.m_after))
    {}

    XmlElement(const XmlElement &) = delete;
    XmlElement &operator=(const XmlElement &) = delete;
    XmlElement &operator=(XmlElement &&) = delete;

    ~XmlElement()
    {
        if (!m_xml) {
            return; // moved from
        }
        m_xml->writeEndElement();
        if (!m_after.isEmpty()) {
            m_xml->writeCharacters(m_after);
        }
    }

private:
    QXmlStreamWriter *m_xml;
    QString m_after;
};

} // namespace quorra
