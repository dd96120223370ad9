// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_links.h"

#include "document/link.h"
#include "link_target.h"

#include <Annot.h>
#include <Link.h>
#include <PDFDoc.h>
#include <Page.h>

#include <QString>

#include <memory>

namespace quorra {

namespace {

QString addressOf(PDFDoc &doc, const AnnotLink &link)
{
    const LinkAction *action = link.getAction();
    if (!action) {
        return {};
    }
    if (action->getKind() == actionURI) {
        QString address = QString::fromUtf8(static_cast<const LinkURI *>(action)->getURI().c_str()).trimmed();
        return model::isSafeAddress(address) ? address : QString();
    }
    if (action->getKind() == actionGoTo) {
        const LinkTarget target = targetOf(doc, action);
        return target.page > 0 ? model::pageLink(target.page) : QString();
    }
    return {};
}

} // namespace

void applyLinks(PDFDoc &doc, int pageNumber, model::RawPage &page)
{
    Page *source = doc.getPage(pageNumber);
    const std::unique_ptr<Links> links = source ? source->getLinks() : nullptr;
    if (!links) {
        return;
    }
    for (AnnotLink *link : links->getLinks()) {
        const QString target = addressOf(doc, *link);
        if (target.isEmpty()) {
            continue;
        }
        double x1 = 0;
        double y1 = 0;
        double x2 = 0;
        double y2 = 0;
        link->getRect(&x1, &y1, &x2, &y2);
        const Box area = shownBox(*source, x1, y1, x2, y2);
        for (model::RawWord &word : page.words) {
            if (area.contains(word.box.centreX(), word.box.centreY())) {
                word.link = target;
            }
        }
    }
}

} // namespace quorra
