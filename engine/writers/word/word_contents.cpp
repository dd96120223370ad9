// SPDX-License-Identifier: GPL-3.0-or-later
#include "word_contents.h"

#include "odf/odf_paragraphs.h"

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

/// Writes what an entry of this level consists of: a link with the text of its heading, dots, and the page number.
void writeEntryTemplate(QXmlStreamWriter &xml, int level)
{
    const XmlElement entry(xml, u"text:table-of-content-entry-template"_s);
    xml.writeAttribute("text:outline-level"_L1, QString::number(level));
    xml.writeAttribute("text:style-name"_L1, contentsStyle(level));
    xml.writeEmptyElement("text:index-entry-link-start"_L1);
    xml.writeEmptyElement("text:index-entry-chapter"_L1);
    xml.writeEmptyElement("text:index-entry-text"_L1);
    xml.writeEmptyElement("text:index-entry-tab-stop"_L1);
    xml.writeAttribute("style:type"_L1, "right"_L1);
    xml.writeAttribute("style:leader-char"_L1, "."_L1);
    xml.writeEmptyElement("text:index-entry-page-number"_L1);
    xml.writeEmptyElement("text:index-entry-link-end"_L1);
}

/// Begins the field with its rules, which come before the entries.
XmlElement beginField(QXmlStreamWriter &xml, int number, int levels)
{
    XmlElement field(xml, u"text:table-of-content"_s);
    xml.writeAttribute("text:name"_L1, u"Contents%1"_s.arg(number));
    xml.writeAttribute("text:protected"_L1, "false"_L1);
    const XmlElement source(xml, u"text:table-of-content-source"_s);
    xml.writeAttribute("text:outline-level"_L1, QString::number(levels));
    xml.writeAttribute("text:use-index-marks"_L1, "false"_L1);
    for (int level = 1; level <= levels; ++level) {
        writeEntryTemplate(xml, level);
    }
    return field;
}

} // namespace

ContentsField::ContentsField(QXmlStreamWriter &xml, int number, int levels)
    : m_field(beginField(xml, number, levels))
    , m_body(xml, u"text:index-body"_s)
{}

} // namespace quorra::office
