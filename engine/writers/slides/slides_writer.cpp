// SPDX-License-Identifier: GPL-3.0-or-later
#include "slides/slides_writer.h"

#include "document/page_transform.h"
#include "document/page_walk.h"
#include "odf/odf_frames.h"
#include "odf/placed_page.h"
#include "slide_fit.h"
#include "slide_grid.h"
#include "slide_table.h"
#include "slide_text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

void writeSlide(const Sink &sink, const model::Page &page, model::PictureSource &pictures)
{
    writeBackground(sink, page, pictures, FrameAnchor::Slide);
    for (const TextBlock &block : textBlocks(page, false)) {
        for (const model::Paragraph *paragraph : block.paragraphs) {
            writeSlideText(sink, page, *paragraph, block.labels);
        }
    }
    forEachBlock(page, [&](const model::Block &block) {
        const model::Table *table = block.table();
        if (table && fitsAsTable(page, *table)) {
            writeSlideTable(sink, *table);
        } else if (table) {
            writeSlideGrid(sink, page, *table);
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
    const QString layout = file.styles().name(
        {"style:page-layout"_L1,
         {},
         {{"style:page-layout-properties"_L1,
           {{"fo:page-width"_L1, pt(size.width)},
            {"fo:page-height"_L1, pt(size.height)},
            {"fo:margin"_L1, u"0pt"_s},
            {"style:print-orientation"_L1, size.width > size.height ? u"landscape"_s : u"portrait"_s}}}}});
    file.masters().writeEmptyElement("style:master-page"_L1);
    file.masters().writeAttribute("style:name"_L1, "Default"_L1);
    file.masters().writeAttribute("style:page-layout-name"_L1, layout);
    for (const model::Page &page : document.pages) {
        const XmlElement slide(sink.xml, "draw:page"_L1);
        sink.xml.writeAttribute("draw:name"_L1, u"Page %1"_s.arg(page.number));
        sink.xml.writeAttribute("draw:master-page-name"_L1, "Default"_L1);
        writeSlide(sink, page, pictures);
    }
}

} // namespace quorra::office
