// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_navigation.h"

#include "base/xml_text.h"
#include "html_anchors.h"
#include "html_text.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <optional>
#include <vector>

namespace quorra {

namespace {

constexpr std::size_t minEntries = 2; // a single one leads to what is seen anyway

struct OpenList
{
    int level; ///< of its entries
    XmlElement list;
    std::optional<XmlElement> item;
};

} // namespace

void writeHtmlNavigation(QXmlStreamWriter &xml, const model::Document &document, const HtmlHeadings &headings)
{
    std::vector<const model::OutlineEntry *> entries;
    for (const model::OutlineEntry &entry : document.facts.outline) {
        const bool isPart = std::any_of(document.pages.begin(), document.pages.end(), [&entry](const auto &page) {
            return page.number == entry.page;
        });
        if (isPart && !entry.title.trimmed().isEmpty()) {
            entries.push_back(&entry);
        }
    }
    if (entries.size() < minEntries) {
        return;
    }
    const XmlElement navigation = startBlock(xml, QStringLiteral("nav"));
    std::vector<OpenList> open;
    for (const model::OutlineEntry *entry : entries) {
        while (!open.empty() && open.back().level > entry->level) {
            open.pop_back();
        }
        if (!open.empty() && open.back().level == entry->level) {
            open.back().item.reset();
            xml.writeCharacters(QStringLiteral("\n"));
        } else {
            open.push_back({entry->level, startBlock(xml, QStringLiteral("ul")), {}});
        }
        open.back().item.emplace(xml, QStringLiteral("li"));
        const QString heading = headings.idOf(entry->page, entry->title);
        const XmlElement link(xml, QStringLiteral("a"));
        xml.writeAttribute(
            QStringLiteral("href"),
            QLatin1Char('#') + (heading.isEmpty() ? HtmlAnchors::pageId(entry->page) : heading));
        xml.writeCharacters(xmlText(entry->title.simplified()));
    }
    while (!open.empty()) { // from the innermost to the outermost
        open.pop_back();
    }
}

} // namespace quorra
