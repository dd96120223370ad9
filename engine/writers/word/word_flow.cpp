// SPDX-License-Identifier: GPL-3.0-or-later
#include "word/word_flow.h"

#include "document/page_walk.h"
#include "document/paragraph_borders.h"
#include "flow_areas.h"
#include "flow_breaks.h"
#include "flow_fit.h"
#include "odf/line_layout.h"
#include "odf/odf_frames.h"
#include "odf/odf_tables.h"
#include "page_layout.h"
#include "word_columns.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr double roomForBreak = 90; // points below a column that is certain not to run over

class FlowWriter
{
public:
    FlowWriter(OdfFile &file, model::PictureSource &pictures, const FlowForm &form)
        : m_sink{file.body(), file.styles()}
        , m_masters({file.masters(), file.styles()})
        , m_pictures(pictures)
        , m_form(form)
        , m_breaks(m_sink, form.breaksApart)
    {}

    void write(const model::Document &document);

private:
    void writePage(const model::Page &page, const Margins &margins);
    void writeScan(const model::Page &page);
    void writeSection(const model::Page &page, const model::Section &section, const Margins &margins);
    void writeBlocks(const model::Page &page, const model::Section &section, std::vector<Area> &areas, bool inColumns);
    void writeBlock(
        const model::Page &page, const model::Block &block, const Box &column, Area &area,
        std::optional<double> baselineAfter);
    void writeParagraphBlock(
        const model::Page &page, const model::Paragraph &paragraph, const Box &column, Area &area,
        std::optional<double> baselineAfter);
    void writeShortRule(const Decoration &decoration, const Area &area, ParagraphPlace place);
    void writeTableBlock(const model::Table &table, Area &area);
    void writePictureBlock(const model::Page &page, const model::Picture &picture, Area &area);
    void writeLabels();
    void writePicturesBehind(const model::Page &page);

    Sink m_sink;
    MasterPages m_masters;
    model::PictureSource &m_pictures;
    FlowForm m_form;
    FlowBreaks m_breaks;
    QString m_masterPage;
    int m_sections = 0;
    std::vector<const model::Paragraph *> m_labels; // of the picture that is being written
    double m_bottom = 0;                            // of the page's sections so far
    double m_end = 0;                               // of the room for the page's text
    Fit m_fit;
};

void FlowWriter::write(const model::Document &document)
{
    const std::vector<Margins> margins = pageMargins(document);
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const model::Page &page = document.pages[i];
        m_breaks.addBookmark(u"page%1"_s.arg(page.number));
        const bool newPage = i == 0 || m_form.pages || page.scanned || document.pages[i - 1].scanned;
        if (newPage) {
            const QString master = m_masters.name(page, margins[i], m_form.pages && !page.scanned);
            m_breaks.addPage(master == m_masterPage ? QString() : master, i > 0 && master == m_masterPage);
            m_masterPage = master;
        }
        m_bottom = m_form.places ? margins[i].top : page.content.top;
        if (page.scanned) {
            writeScan(page);
        } else {
            m_end = textEnd(page, margins[i], headsOf(page));
            m_fit = m_form.pages ? fitOf(page, margins[i].top, m_end, m_form.columns) : Fit{};
            writePage(page, margins[i]);
        }
        if (m_form.pages) {
            m_breaks.flush();
        }
    }
    m_breaks.flush();
}

void FlowWriter::writeScan(const model::Page &page)
{
    const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
    writePictures(m_sink, page, m_pictures, FrameAnchor::Behind);
    m_breaks.afterColumns();
}

void FlowWriter::writePicturesBehind(const model::Page &page)
{
    forEachBlock(page, [&](const model::Block &block) {
        const model::Picture *picture = block.picture();
        if (picture && isBehindText(page, *picture)) {
            const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
            writePicture(
                m_sink, m_pictures.encode(page.number, picture->box, picture->kind), picture->box, FrameAnchor::Behind);
        }
    });
}

void FlowWriter::writePage(const model::Page &page, const Margins &margins)
{
    if (m_form.pages) {
        writePicturesBehind(page);
    }
    for (const model::Section &section : page.sections) {
        writeSection(page, section, margins);
    }
}

void FlowWriter::writeSection(const model::Page &page, const model::Section &section, const Margins &margins)
{
    const bool inColumns = standsInColumns(section, m_form);
    std::vector<Area> areas = areasOf(page, section, margins, m_form, m_bottom);
    std::optional<XmlElement> columns;
    if (inColumns) {
        m_breaks.writeSpace(m_form.places ? m_fit.spaces * (topOf(section) - m_bottom) : 0);
        columns.emplace(beginColumns(m_sink, page, section, margins, ++m_sections));
    }
    writeBlocks(page, section, areas, inColumns);
    if (inColumns) {
        columns.reset();
        m_breaks.afterColumns();
    }
    for (const Area &area : areas) {
        m_bottom = std::max(m_bottom, area.bottom);
    }
}

void FlowWriter::writeBlocks(
    const model::Page &page, const model::Section &section, std::vector<Area> &areas, bool inColumns)
{
    const model::Picture *picture = nullptr;
    std::size_t before = 0;
    for (std::size_t i = 0; i < section.blocks.size(); ++i) {
        const model::Block &block = section.blocks[i];
        if (picture && isLabelOf(block, *picture)) {
            continue; // went with the picture
        }
        picture = block.picture();
        const auto column = std::min(static_cast<std::size_t>(std::max(0, block.column)), areas.size() - 1);
        Area &area = areas[column];
        // A column that begins with a paragraph of its own begins there in the text as well, unless the one before it
        // is full: a line too many in that one would leave a page with nothing else.
        const bool full = areas[before].bottom > m_end - roomForBreak;
        if (inColumns && column > before && !area.begun && !full) {
            m_breaks.addColumn();
        }
        before = column;
        m_labels = labelsAfter(section, i);
        writeBlock(page, block, section.columns[column], area, baselineAfter(section, i));
        area.begun = true;
        area.followsOther = false;
        if (const model::Paragraph *paragraph = block.paragraph()) {
            noteLines(*paragraph, section, areas, column);
        }
    }
}

void FlowWriter::writeBlock(
    const model::Page &page, const model::Block &block, const Box &column, Area &area,
    std::optional<double> baselineAfter)
{
    if (const model::Paragraph *paragraph = block.paragraph()) {
        writeParagraphBlock(page, *paragraph, column, area, baselineAfter);
        return;
    }
    if (const model::Table *table = block.table()) {
        writeTableBlock(*table, area);
    } else if (const model::Picture *picture = block.picture()) {
        if (m_form.pages && isBehindText(page, *picture)) {
            if (!m_labels.empty()) {
                const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
                writeLabels();
            }
            return;
        }
        writePictureBlock(page, *picture, area);
    }
    area.bottom = block.box().bottom;
    area.baseline.reset();
}

void FlowWriter::writeTableBlock(const model::Table &table, Area &area)
{
    m_breaks.writeSpace(m_fit.spaces * spaceAbove(area, table.box.top, m_form));
    TablePlace place;
    place.left = table.box.left - area.left;
    place.exactLeading = m_form.places;
    place.repeatsHead = !m_form.pages;
    writeTable(m_sink, table, place);
    m_breaks.afterTable();
}

// A paragraph's line reaches over its whole width: a shorter one gets an empty paragraph of its own.
void FlowWriter::writeShortRule(const Decoration &decoration, const Area &area, ParagraphPlace place)
{
    place.ruleBelow = decoration.above;
    place.gapBelow = 0;
    place.left = decoration.aboveFrom - area.left;
    place.right = area.right - decoration.aboveTo;
    writeAnchorParagraph(m_sink, place);
}

void FlowWriter::writeParagraphBlock(
    const model::Page &page, const model::Paragraph &paragraph, const Box &column, Area &area,
    std::optional<double> baselineAfter)
{
    ParagraphPlace place = m_breaks.take();
    const Decoration decoration = decorationOf(page, paragraph.box);
    const LaidOut lies = laidOut(paragraph, area.baseline, baselineAfter);
    model::Paragraph placed = paragraph;
    placed.spaceBefore = m_fit.spaces * spaceAbove(area, lies.top, m_form);
    if (decoration.above.width > 0) {
        placed.spaceBefore = std::max(0.0, placed.spaceBefore - decoration.gapAbove - decoration.above.width);
    }
    if (hasShortRule(decoration, column)) {
        place.above = std::exchange(placed.spaceBefore, decoration.gapAbove);
        writeShortRule(decoration, area, std::exchange(place, {}));
    } else {
        place.ruleAbove = decoration.above;
    }
    place.background = decoration.background;
    place.ruleBelow = decoration.below;
    place.gapAbove = decoration.gapAbove;
    place.gapBelow = decoration.gapBelow;
    place.left = column.left - area.left;
    place.right = area.right - column.right;
    place.exactLeading = m_form.places;
    place.lineHeight = m_fit.lines * lies.lineHeight;
    writeParagraph(m_sink, placed, place);
    area.bottom = lies.bottom;
    area.baseline = lastBaseline(paragraph);
}

// The picture shows its labels; hidden, they can still be found.
void FlowWriter::writeLabels()
{
    const QString hidden = m_sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"text"_s}},
         {{"style:text-properties"_L1, {{"fo:font-size"_L1, u"1pt"_s}, {"text:display"_L1, u"none"_s}}}}});
    for (const model::Paragraph *labels : std::exchange(m_labels, {})) {
        const XmlElement span(m_sink.xml, "text:span"_L1);
        m_sink.xml.writeAttribute("text:style-name"_L1, hidden);
        for (const model::Run &run : model::runsOf(*labels)) {
            writeText(m_sink.xml, run.text);
        }
        writeText(m_sink.xml, u" "_s);
    }
}

void FlowWriter::writePictureBlock(const model::Page &page, const model::Picture &picture, Area &area)
{
    model::Paragraph holder;
    holder.indentLeft = std::max(0.0, picture.box.left - area.left);
    holder.spaceBefore = m_fit.spaces * spaceAbove(area, picture.box.top, m_form);
    ParagraphPlace place = m_breaks.take();
    place.exactLeading = false; // the line must grow to the picture's height
    const XmlElement element(m_sink.xml, "text:p"_L1);
    m_sink.xml.writeAttribute("text:style-name"_L1, m_sink.styles.name(emptyParagraphStyle(holder, place)));
    Box box = picture.box;
    const double widest = area.right - area.left - holder.indentLeft;
    if (box.width() > widest && widest > 0) {
        box.bottom = box.top + box.height() * widest / box.width();
        box.right = box.left + widest;
    }
    writePicture(m_sink, m_pictures.encode(page.number, picture.box, picture.kind), box, FrameAnchor::Line);
    writeLabels();
}

} // namespace

void writeFlow(OdfFile &file, const model::Document &document, model::PictureSource &pictures, const FlowForm &form)
{
    FlowWriter(file, pictures, form).write(document);
}

} // namespace quorra::office
