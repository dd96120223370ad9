// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_target.h"

#include "document/rotation.h"

#include <Link.h>
#include <PDFDoc.h>
#include <Page.h>

#include <algorithm>
#include <memory>

namespace quorra {

LinkTarget targetOf(PDFDoc &doc, const LinkAction *action)
{
    if (!action || action->getKind() != actionGoTo) {
        return {};
    }
    const auto &goTo = *static_cast<const LinkGoTo *>(action);
    std::unique_ptr<LinkDest> named;
    const LinkDest *place = goTo.getDest();
    if (!place && goTo.getNamedDest()) {
        named = doc.findDest(goTo.getNamedDest());
        place = named.get();
    }
    if (!place || !place->isOk()) {
        return {};
    }
    LinkTarget target{place->isPageRef() ? doc.findPage(place->getPageRef()) : place->getPageNum()};
    if (target.page < 1 || target.page > doc.getNumPages()) {
        return {};
    }
    const bool hasTop = place->getKind() == destXYZ    ? place->getChangeTop()
                        : place->getKind() == destFitH ? true
                                                       : place->getKind() == destFitR;
    const Page *page = hasTop ? doc.getPage(target.page) : nullptr;
    if (page) {
        const Box box = shownBox(*page, place->getLeft(), place->getTop(), place->getLeft(), place->getTop());
        const double height = page->getRotate() % 180 == 0 ? page->getCropHeight() : page->getCropWidth();
        target.top = height > 0 ? std::clamp(box.top / height, 0.0, 1.0) : 0;
    }
    return target;
}

Box shownBox(const Page &page, double x1, double y1, double x2, double y2)
{
    const PDFRectangle *crop = page.getCropBox();
    const double width = crop->x2 - crop->x1;
    const double height = crop->y2 - crop->y1;
    const Box flat{x1 - crop->x1, crop->y2 - y2, x2 - crop->x1, crop->y2 - y1};
    return model::PageRotation{page.getRotate() / 90, width, height}.box(flat);
}

} // namespace quorra
