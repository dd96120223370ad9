// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_links.h"

#include "document/link.h"
#include "document/rotation.h"

#include <Annot.h>
#include <Link.h>
#include <PDFDoc.h>
#include <Page.h>

#include <QString>

#include <algorithm>
#include <memory>

namespace quorra {

namespace {

int pageOf(PDFDoc &doc, const LinkGoTo &action)
{
    std::unique_ptr<LinkDest> named;
    const LinkDest *target = action.getDest();
    if (!target && action.getNamedDest()) {
        named = doc.findDest(action.getNamedDest());
        target = named.get();
    }
    if (!target || !target->isOk()) {
        return 0;
    }
    return target->isPageRef() ? doc.findPage(target->getPageRef()) : target->getPageNum();
}

QString targetOf(PDFDoc &doc, const AnnotLink &link)
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
        const int number = pageOf(doc, *static_cast<const LinkGoTo *>(action));
        return number > 0 ? model::pageLink(number) : QString();
    }
    return {};
}

/// Converts PDF page coordinates to those of RawPage: the origin is the corner of the crop box, and the page rotation
/// is applied.
Box shownBox(const Page &page, double x1, double y1, double x2, double y2)
{
    const PDFRectangle *crop = page.getCropBox();
    const double width = crop->x2 - crop->x1;
    const double height = crop->y2 - crop->y1;
    const Box flat{x1 - crop->x1, crop->y2 - y2, x2 - crop->x1, crop->y2 - y1};
    return model::Turn{page.getRotate() / 90, width, height}.box(flat);
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
        const QString target = targetOf(doc, *link);
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
