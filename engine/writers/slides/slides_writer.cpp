// SPDX-License-Identifier: GPL-3.0-or-later
#include "slides/slides_writer.h"

#include "document/page_transform.h"
#include "document/page_walk.h"
#include "odf/odf_frames.h"
#include "odf/placed_page.h"
#include "slide_boxes.h"
#include "slide_fit.h"
#include "slide_grid.h"
#include "slide_master.h"
#include "slide_table.h"
#include "slide_text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

void writeSlide(
    const Sink &sink, const model::Page &page, const std::vector<SlideBox> &boxes, model::PictureSource &pictures)
{
    writeBackground(sink, page, pictures, FrameAnchor::Slide);
    for (const SlideBox &box : boxes) {
        writeSlideBox(sink, page, box);
    }
    forEachBlock(page, [&](const model::Block &block) {
        const model::Table *table = block.table();
        if (table && canBeTable(*table)) {
            writeSlideTable(sink, *table);
        } else if (table) {
            writeSlideGrid(sink, page, *table);
        } else if (const model::Figure *figure = block.figure()) {
            for (const SlideBox &box : labelBoxes(page, *figure)) {
                writeSlideBox(sink, page, box);
            }
        }
    });
}

} // namespace

void unifyPages(model::Document &document)
{
    if (document.pages.empty()) {
        return;
    }
    dropDeadLinks(document);
    useCommonFonts(document);
    const model::Page &first = document.pages.front();
    const double width = first.width;
    const double height = first.height;
    for (model::Page &page : document.pages) {
        if (model::haveSameSize(page, first)) {
            continue;
        }
        const double scale = std::min(width / page.width, height / page.height);
        const model::Transform transform{
            scale, scale, (width - scale * page.width) / 2, (height - scale * page.height) / 2};
        transformPage(page, document.styles, transform, width, height);
    }
}

void writeSlides(OdfFile &file, const model::Document &document, model::PictureSource &pictures)
{
    const Sink sink{file.body(), file.styles()};
    const model::Page size = document.pages.empty() ? model::Page{} : document.pages.front();
    const QString master = writeMaster(file, size);
    for (const model::Page &page : document.pages) {
        const std::vector<SlideBox> boxes = slideBoxes(page, document.facts);
        const XmlElement slide(sink.xml, "draw:page"_L1);
        sink.xml.writeAttribute("draw:name"_L1, u"Page %1"_s.arg(page.number));
        sink.xml.writeAttribute("draw:master-page-name"_L1, master);
        if (const QString layout = layoutName(boxes); !layout.isEmpty()) {
            sink.xml.writeAttribute("presentation:presentation-page-layout-name"_L1, layout);
        }
        writeSlide(sink, page, boxes, pictures);
    }
}

} // namespace quorra::office
