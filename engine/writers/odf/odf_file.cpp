// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_file.h"

#include "base/failure.h"
#include "base/xml_element.h"
#include "base/xml_text.h"
#include "document/language.h"
#include "odf/odf_paragraphs.h"

#include <array>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct KindRow
{
    QLatin1String mimeType;
    QLatin1String bodyElement;
};

const KindRow &rowOf(OdfKind kind)
{
    static constexpr std::array<KindRow, 3> rows = {{
        {QLatin1String("application/vnd.oasis.opendocument.text"), QLatin1String("office:text")},
        {QLatin1String("application/vnd.oasis.opendocument.presentation"), QLatin1String("office:presentation")},
        {QLatin1String("application/vnd.oasis.opendocument.spreadsheet"), QLatin1String("office:spreadsheet")},
    }};
    return rows[static_cast<std::size_t>(kind)];
}

constexpr std::array<std::array<QLatin1String, 2>, 13> namespaces = {{
    {QLatin1String("xmlns:office"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:office:1.0")},
    {QLatin1String("xmlns:style"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:style:1.0")},
    {QLatin1String("xmlns:text"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:text:1.0")},
    {QLatin1String("xmlns:table"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:table:1.0")},
    {QLatin1String("xmlns:draw"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:drawing:1.0")},
    {QLatin1String("xmlns:fo"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0")},
    {QLatin1String("xmlns:svg"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0")},
    {QLatin1String("xmlns:presentation"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:presentation:1.0")},
    {QLatin1String("xmlns:number"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0")},
    {QLatin1String("xmlns:xlink"), QLatin1String("http://www.w3.org/1999/xlink")},
    {QLatin1String("xmlns:dc"), QLatin1String("http://purl.org/dc/elements/1.1/")},
    {QLatin1String("xmlns:meta"), QLatin1String("urn:oasis:names:tc:opendocument:xmlns:meta:1.0")},
    {QLatin1String("xmlns:loext"),
     QLatin1String("urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0")},
}};

Element
namedStyle(QLatin1String name, QLatin1String family, const Attributes &more = {}, std::vector<Element> children = {})
{
    Attributes attributes = {{"style:name"_L1, name}, {"style:family"_L1, family}};
    attributes.insert(attributes.end(), more.begin(), more.end());
    return {"style:style"_L1, attributes, std::move(children)};
}

/// Returns a named style of paragraphs; `shown` is the name for readers where it differs.
Element basedOnStandard(QLatin1String name, const QString &shown = {})
{
    Attributes more = {{"style:parent-style-name"_L1, u"Standard"_s}};
    if (!shown.isEmpty()) {
        more.emplace_back("style:display-name"_L1, shown);
    }
    return namedStyle(name, "paragraph"_L1, more);
}

constexpr int maxHeadingLevel = 6; // as in HTML

Element contentsEntryStyle(int level)
{
    return {
        "style:style"_L1,
        {{"style:name"_L1, contentsStyle(level)},
         {"style:display-name"_L1, u"Contents %1"_s.arg(level)},
         {"style:family"_L1, u"paragraph"_s},
         {"style:parent-style-name"_L1, u"Standard"_s}},
        {}};
}

Element headingStyle(int level)
{
    const QString number = QString::number(level);
    return {
        "style:style"_L1,
        {{"style:name"_L1, u"Heading_20_"_s + number},
         {"style:display-name"_L1, u"Heading "_s + number},
         {"style:family"_L1, u"paragraph"_s},
         {"style:parent-style-name"_L1, u"Standard"_s},
         {"style:next-style-name"_L1, u"Standard"_s},
         {"style:default-outline-level"_L1, number}},
        {}};
}

/// Returns the default style of a family, which sets the language; nothing if it is not known.
std::vector<Element> defaultStyles(QLatin1String family, const Attributes &language)
{
    if (language.empty()) {
        return {};
    }
    return {{"style:default-style"_L1, {{"style:family"_L1, family}}, {{"style:text-properties"_L1, language}}}};
}

/// Returns the fixed styles that automatic ones are based on. Without "Frame" and "Graphics", word processors treat
/// frames and pictures as drawing shapes; without "standard", the size of a slide is ignored.
std::vector<Element> fixedStyles(OdfKind kind, const QString &language)
{
    Attributes textProperties = {{"fo:hyphenate"_L1, u"false"_s}};
    const Attributes languageProperties = languageAttributes(language);
    textProperties.insert(textProperties.end(), languageProperties.begin(), languageProperties.end());
    // Without two orphans and widows, LibreOffice does not balance the columns of almost full pages, and an empty page
    // follows them.
    const Element plainParagraph{
        "style:default-style"_L1,
        {{"style:family"_L1, u"paragraph"_s}},
        {{"style:paragraph-properties"_L1,
          {{"fo:orphans"_L1, u"2"_s}, {"fo:widows"_L1, u"2"_s}, {"style:tab-stop-distance"_L1, u"36pt"_s}},
          {}},
         {"style:text-properties"_L1, textProperties}}};
    std::vector<Element> styles;
    switch (kind) {
    case OdfKind::Text:
        styles = {
            plainParagraph,
            namedStyle("Standard"_L1, "paragraph"_L1),
            basedOnStandard("Title"_L1),
            basedOnStandard("List"_L1),
            basedOnStandard("Caption"_L1),
            basedOnStandard("Footnote"_L1),
            basedOnStandard("Header"_L1),
            basedOnStandard("Footer"_L1),
            basedOnStandard("Table_20_Contents"_L1, u"Table Contents"_s),
            basedOnStandard("Contents_20_Heading"_L1, u"Contents Heading"_s),
            basedOnStandard("Empty_20_Line"_L1, u"Empty Line"_s),
            namedStyle("Frame"_L1, "graphic"_L1),
            namedStyle("Graphics"_L1, "graphic"_L1)};
        for (int level = 1; level <= maxHeadingLevel; ++level) {
            styles.push_back(headingStyle(level));
        }
        for (int level = 1; level <= contentsLevels; ++level) {
            styles.push_back(contentsEntryStyle(level));
        }
        break;
    case OdfKind::Presentation:
        styles = defaultStyles("graphic"_L1, languageProperties);
        styles.push_back(namedStyle(
            "standard"_L1, "graphic"_L1, {},
            {{"style:graphic-properties"_L1, {{"draw:stroke"_L1, u"none"_s}, {"draw:fill"_L1, u"none"_s}}, {}}}));
        for (const QLatin1String name : {"Default-title"_L1, "Default-outline1"_L1}) {
            styles.push_back(namedStyle(
                name, "presentation"_L1, {},
                {{"style:graphic-properties"_L1, {{"draw:stroke"_L1, u"none"_s}, {"draw:fill"_L1, u"none"_s}}, {}}}));
        }
        break;
    case OdfKind::Spreadsheet:
        styles = defaultStyles("table-cell"_L1, languageProperties);
        styles.push_back(namedStyle("Default"_L1, "table-cell"_L1));
        break;
    }
    return styles;
}

[[noreturn]] void fail(const QFileDevice &file)
{
    throw Failure(
        ExitStatus::CannotWrite,
        "cannot write " + file.fileName().toStdString() + ": " + file.errorString().toStdString());
}

void append(QFile &target, QIODevice &source)
{
    constexpr qint64 blockBytes = 1 << 18;
    source.seek(0);
    while (!source.atEnd()) {
        if (target.write(source.read(blockBytes)) < 0) {
            fail(target);
        }
    }
}

} // namespace

OdfFile::OdfFile(OdfKind kind, const QString &path) : m_kind(kind), m_path(path), m_bodyFile(path + ".body"_L1)
{
    if (!m_bodyFile.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        fail(m_bodyFile);
    }
    m_masterBuffer.open(QIODevice::ReadWrite);
    m_body.setDevice(&m_bodyFile);
    m_masters.setDevice(&m_masterBuffer);
}

void OdfFile::describe(const model::Document &document)
{
    const model::FileFacts &facts = document.facts;
    m_metadata.clear();
    const auto add = [this](QLatin1String name, const QString &text) {
        if (!text.isEmpty()) {
            m_metadata.push_back({name, {}, {}, xmlText(text)});
        }
    };
    add("dc:title"_L1, facts.title);
    add("dc:subject"_L1, facts.subject);
    add("meta:keyword"_L1, facts.keywords);
    add("meta:initial-creator"_L1, facts.author);
    m_language = model::languageOf(document);
    add("dc:language"_L1, m_language);
}

void OdfFile::writeMetadata(QXmlStreamWriter &xml) const
{
    if (m_metadata.empty()) {
        return;
    }
    const XmlElement metadata(xml, "office:meta"_L1);
    for (const Element &element : m_metadata) {
        writeElement(xml, element);
    }
}

void OdfFile::writeStyles(QXmlStreamWriter &xml) const
{
    {
        const XmlElement fonts(xml, "office:font-face-decls"_L1);
        m_styles.writeFonts(xml);
    }
    std::vector<Element> named = fixedStyles(m_kind, m_language);
    named.insert(named.end(), m_namedStyles.begin(), m_namedStyles.end());
    m_styles.writeStyles(xml, named);
}

void OdfFile::writeDocument(QXmlStreamWriter &xml, QFile &file)
{
    const XmlElement document(xml, "office:document"_L1);
    for (const auto &[name, address] : namespaces) {
        xml.writeAttribute(name, address);
    }
    xml.writeAttribute("office:version"_L1, u"1.3"_s);
    xml.writeAttribute("office:mimetype"_L1, rowOf(m_kind).mimeType);
    writeMetadata(xml);
    writeStyles(xml);
    // An empty text closes the start tag, so that the parts written earlier can be appended.
    {
        const XmlElement masters(xml, "office:master-styles"_L1);
        xml.writeCharacters(QString());
        append(file, m_masterBuffer);
    }
    const XmlElement body(xml, "office:body"_L1);
    const XmlElement content(xml, rowOf(m_kind).bodyElement);
    xml.writeCharacters(QString());
    append(file, m_bodyFile);
}

void OdfFile::finish()
{
    // An empty text closes the tag of an empty element at the end of a part.
    m_body.writeCharacters(QString());
    m_masters.writeCharacters(QString());
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        fail(file);
    }
    QXmlStreamWriter xml(&file);
    xml.writeStartDocument();
    writeDocument(xml, file);
    xml.writeEndDocument();
    m_bodyFile.remove();
    if (!file.flush() || m_body.hasError()) {
        fail(file);
    }
}

} // namespace quorra::office
