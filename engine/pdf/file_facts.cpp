// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/file_facts.h"

#include "link_target.h"
#include "pdf_file_handles.h"
#include "text_string.h"

#include <Link.h>
#include <Object.h>
#include <XRef.h>

#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <set>

namespace quorra {

namespace {

struct Limits
{
    std::size_t entries = 20'000;     ///< of an outline; more are no help to anyone
    int depth = 32;                   ///< of an outline
    qsizetype textLength = 2'000;     ///< characters of a title and the like
    std::size_t metadata = 2'000'000; ///< bytes; real ones have a few thousand
};

constexpr Limits limits;

/// Removes what programs write in place of a text that nobody gave.
QString realText(QString text)
{
    static constexpr std::array<QLatin1String, 6> placeholders = {
        QLatin1String("untitled"),    QLatin1String("anonymous"), QLatin1String("(anonymous)"),
        QLatin1String("unspecified"), QLatin1String("unknown"),   QLatin1String("(unspecified)")};
    text = text.simplified().left(limits.textLength);
    const bool placeholder = std::any_of(placeholders.begin(), placeholders.end(), [&text](QLatin1String each) {
        return text.compare(each, Qt::CaseInsensitive) == 0;
    });
    const bool letters = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return placeholder || !letters ? QString() : text;
}

/// The title that the metadata stream has, for files without one in their information dictionary.
QString titleInMetadata(const PDFDoc &doc)
{
    const std::unique_ptr<GooString> data = doc.readMetadata();
    if (!data || data->toStr().size() > limits.metadata) {
        return {};
    }
    QXmlStreamReader xml(QByteArray::fromStdString(data->toStr()));
    bool inTitle = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("title")) {
            inTitle = true;
        } else if (xml.isEndElement() && xml.name() == QLatin1String("title")) {
            inTitle = false;
        } else if (inTitle && xml.isCharacters() && !xml.isWhitespace()) {
            return xml.text().toString(); // the first of several languages is the default
        }
    }
    return {};
}

/// Reads the outline without recursion, so that no file can exhaust the stack.
class OutlineReader
{
public:
    explicit OutlineReader(PDFDoc &doc) : m_doc(doc) {}

    std::vector<model::OutlineEntry> read(const Object &root)
    {
        std::vector<Object> open; // the next entry of each level
        open.push_back(firstOf(root));
        while (!open.empty() && m_entries.size() < limits.entries) {
            if (!open.back().isDict()) {
                open.pop_back();
                continue;
            }
            const Object item = std::move(open.back());
            const int level = static_cast<int>(open.size()) - 1;
            open.back() = next(item, "Next");
            const bool kept = add(item, level);
            if (kept && level + 1 < limits.depth) {
                open.push_back(firstOf(item));
            }
        }
        return std::move(m_entries);
    }

private:
    Object firstOf(const Object &item) { return next(item, "First"); }

    /// The entry that the key refers to; nothing for one that has been read.
    Object next(const Object &item, const char *key)
    {
        const Object &link = item.dictLookupNF(key);
        if (!link.isRef() || !m_seen.insert(link.getRef().num).second) {
            return Object(objNull);
        }
        return item.dictLookup(key);
    }

    /// Entries without a title are left out, with those inside them.
    bool add(const Object &item, int level)
    {
        model::OutlineEntry entry;
        entry.title = textString(item.dictLookup("Title")).simplified().left(limits.textLength);
        if (entry.title.isEmpty()) {
            return false;
        }
        entry.level = level;
        const Object destination = item.dictLookup("Dest");
        const Object action = item.dictLookup("A");
        const std::unique_ptr<LinkAction> link = !destination.isNull() ? LinkAction::parseDest(&destination)
                                                 : action.isDict()     ? LinkAction::parseAction(&action)
                                                                       : nullptr;
        const LinkTarget target = targetOf(m_doc, link.get());
        entry.page = target.page;
        entry.top = target.top;
        m_entries.push_back(std::move(entry));
        return true;
    }

    PDFDoc &m_doc;
    std::set<int> m_seen;
    std::vector<model::OutlineEntry> m_entries;
};

} // namespace

model::FileFacts readFileFacts(PdfFile &file)
{
    PDFDoc &doc = *file.handles().doc;
    model::FileFacts facts;
    const Object info = doc.getDocInfo();
    const auto entry = [&info](const char *key) {
        return info.isDict() ? realText(textString(info.dictLookup(key))) : QString();
    };
    facts.title = entry("Title");
    facts.author = entry("Author");
    facts.subject = entry("Subject");
    facts.keywords = entry("Keywords");
    if (facts.title.isEmpty()) {
        facts.title = realText(titleInMetadata(doc));
    }
    const Object catalog = doc.getXRef()->getCatalog();
    if (catalog.isDict()) {
        facts.language = languageTag(textString(catalog.dictLookup("Lang")));
        const Object outline = catalog.dictLookup("Outlines");
        if (outline.isDict()) {
            facts.outline = OutlineReader(doc).read(outline);
        }
    }
    return facts;
}

} // namespace quorra
