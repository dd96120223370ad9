// SPDX-License-Identifier: GPL-3.0-or-later
#include "slides/slides_writer.h"

#include "document/page_transform.h"
#include "document/page_walk.h"
#include "odf/odf_frames.h"
#include "slide_background.h"
#include "slide_boxes.h"
#include "slide_fit.h"
#include "slide_grid.h"
#include "slide_master.h"
#include "slide_table.h"
#include "slide_text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

/// Writes a picture; a drawing forms a group with its labels.
void writeFigure(
    const Sink &sink, const model::Page &page, const model::Figure &figure, const model::EncodedPicture &picture)
{
    const QString name = u"Picture %1"_s.arg(static_cast<std::size_t>(figure.id) + 1);
    const std::vector<SlideBox> labels = labelBoxes(page, figure);
    std::optional<XmlElement> group;
    if (!labels.empty()) {
        group.emplace(sink.xml, "draw:g"_L1);
        sink.xml.writeAttribute("draw:name"_L1, name);
    }
    writePicture(sink, picture, figure.box, FrameAnchor::Slide, {name, figure.alternative});
    for (const SlideBox &label : labels) {
        writeSlideBox(sink, page, label);
    }
}

/// What is behind the text of a slide: what its master page has, the colour of the page, and what is drawn.
class SlideBackground
{
public:
    SlideBackground(const model::Page &page, const CommonBackground &common, bool isCommon)
        : m_page(page)
        , m_pictures(isCommon ? common : CommonBackground{})
    {
        if (page.background) {
            return;
        }
        m_fills = visibleFills(page);
        if (isCommon) {
            m_fills.erase(m_fills.begin(), m_fills.begin() + static_cast<std::ptrdiff_t>(common.fills.size()));
        } else if (!m_fills.empty() && coversPage(m_fills.front(), page)) {
            m_colour = m_fills.front().colour;
            m_fills.erase(m_fills.begin());
        }
    }

    /// The colour of the page, unless it has that of its master page.
    const std::optional<Colour> &colour() const { return m_colour; }

    void write(const Sink &sink, model::PictureSource &pictures) const
    {
        const model::EncodedPicture whole =
            m_page.background ? pictures.background(m_page.number) : model::EncodedPicture{};
        if (!whole.bytes.isEmpty()) {
            writePicture(sink, whole, *m_page.background, FrameAnchor::Slide, {u"Background"_s, {}});
        } else {
            const std::vector<model::Fill> fills = m_page.background ? visibleFills(m_page) : m_fills;
            for (const model::Fill &fill : fills) {
                writeFill(sink, fill, FrameAnchor::Slide);
            }
        }
        forEachBlock(m_page, [&](const model::Block &block) {
            const model::Figure *figure = block.figure();
            if (figure && !isCommon(*figure, m_pictures)) {
                writeFigure(
                    sink, m_page, *figure,
                    whole.bytes.isEmpty() ? pictures.encode(*figure, model::DrawingWords::Apart)
                                          : model::EncodedPicture{});
            }
        });
        if (whole.bytes.isEmpty()) {
            for (const model::Rule &rule : m_page.rules) {
                writeRule(sink, rule, FrameAnchor::Slide);
            }
        }
    }

private:
    const model::Page &m_page;
    CommonBackground m_pictures; ///< those of the master page
    std::vector<model::Fill> m_fills;
    std::optional<Colour> m_colour;
};

/// Writes the text and the tables of a slide in reading order.
void writeText(const Sink &sink, const model::Page &page, const std::vector<SlideBox> &boxes)
{
    auto next = boxes.begin();
    const auto writeBoxes = [&](std::size_t place) {
        for (; next != boxes.end() && next->place < place; ++next) {
            writeSlideBox(sink, page, *next);
        }
    };
    std::size_t place = 0;
    forEachBlock(page, [&](const model::Block &block) {
        ++place;
        const model::Table *table = block.table();
        if (!table) {
            return;
        }
        writeBoxes(place);
        if (canBeTable(*table)) {
            writeSlideTable(sink, *table);
        } else {
            writeSlideGrid(sink, page, *table);
        }
    });
    writeBoxes(place + 1);
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
    const CommonBackground common = commonBackground(document);
    const SlideMasters masters = writeMasters(file, size, common, pictures);
    for (const model::Page &page : document.pages) {
        const std::vector<SlideBox> boxes = slideBoxes(page, document.facts);
        const bool isCommon = !common.isEmpty() && hasBackground(page, common);
        const SlideBackground background(page, common, isCommon);
        const XmlElement slide(sink.xml, "draw:page"_L1);
        sink.xml.writeAttribute("draw:name"_L1, u"Page %1"_s.arg(page.number));
        if (background.colour()) {
            sink.xml.writeAttribute("draw:style-name"_L1, filledPageStyle(sink.styles, *background.colour()));
        }
        sink.xml.writeAttribute("draw:master-page-name"_L1, isCommon ? masters.common : masters.plain);
        if (const QString layout = layoutName(boxes); !layout.isEmpty()) {
            sink.xml.writeAttribute("presentation:presentation-page-layout-name"_L1, layout);
        }
        background.write(sink, pictures);
        writeText(sink, page, boxes);
    }
}

} // namespace quorra::office
