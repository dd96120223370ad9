// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_anchors.h"

#include "document/link.h"
#include "document/page_walk.h"

namespace quorra {

namespace {

constexpr QLatin1String pagePrefix("#page-");

} // namespace

HtmlAnchors::HtmlAnchors(const model::Document &document)
{
    for (const model::Page &page : document.pages) {
        m_pages.insert(page.number);
        model::forEachParagraph(page, [this](const model::Paragraph &paragraph) {
            if (paragraph.note) {
                m_notes.insert(number(*paragraph.note));
            }
        });
    }
}

QString HtmlAnchors::address(const QString &link) const
{
    const QString address = model::linkAddress(link, pagePrefix);
    const bool isPage = address.startsWith(pagePrefix);
    return isPage && !m_pages.contains(address.mid(pagePrefix.size()).toInt()) ? QString() : address;
}

QString HtmlAnchors::addReference(model::NoteId note)
{
    if (hasReference(note)) {
        return {};
    }
    m_references.insert(number(note));
    return referenceId(note);
}

QString HtmlAnchors::pageId(int page)
{
    return pagePrefix.mid(1) + QString::number(page);
}

QString HtmlAnchors::noteId(model::NoteId note)
{
    return QStringLiteral("note-%1").arg(number(note) + 1);
}

QString HtmlAnchors::referenceId(model::NoteId note)
{
    return QStringLiteral("noteref-%1").arg(number(note) + 1);
}

} // namespace quorra
