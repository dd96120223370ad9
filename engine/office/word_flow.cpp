// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/office/word_flow.h"

#include "engine/office/decorations.h"
#include "engine/office/odf_frames.h"
#include "engine/office/odf_tables.h"
#include "engine/office/page_layout.h"
#include "engine/office/page_walk.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

// The strip that blocks stand in: a column, or the page between its margins.
struct Area
{
    double left = 0;
    double right = 0;
    double bottom = 0; ///< of the block written last
};

class FlowWriter
{
public:
    FlowWriter(OdfFile &file, model::PictureSource &pictures, const FlowForm &form)
        : m_sink{file.body(), file.styles()}
        , m_masters({file.masters(), file.styles()})
        , m_pictures(pictures)
        , m_form(form)
    {}

    void write(const model::Document &document);

private:
    void writePage(const model::Page &page, const Margins &margins);
    void writeScan(const model::Page &page);
    void writeSection(const model::Page &page, const model::Section &section, const Margins &margins);
    void beginColumns(const model::Page &page, const model::Section &section, const Margins &margins);
    void writeBlock(const model::Page &page, const model::Block &block, const model::Box &column, Area &area);
    void writeParagraphBlock(
        const model::Page &page, const model::Paragraph &paragraph, const model::Box &column, const Area &area);
    void writePictureBlock(const model::Page &page, const model::Picture &picture, const Area &area);
    void writeLabels(const model::Paragraph &labels);
    void writePicturesBehind(const model::Page &page);
    void closeBefore();
    void flushBreak();

    Sink m_sink;
    MasterPages m_masters;
    model::PictureSource &m_pictures;
    FlowForm m_form;
    ParagraphPlace m_pending; // the break and bookmark that the next paragraph carries
    bool m_hasPending = false;
    QString m_masterPage;
    bool m_breakWouldBeLost = false;
    bool m_afterTable = false;
    int m_sections = 0;
    double m_firstAbove = 0; // blank space above the first block of a page
};

void FlowWriter::flushBreak()
{
    if (m_hasPending) {
        writeAnchorParagraph(m_sink, std::exchange(m_pending, {}));
        m_hasPending = false;
        m_afterTable = false;
    }
}

// A break right after columns is lost, one right after frames comes before them: an empty paragraph goes between.
void FlowWriter::closeBefore()
{
    if (std::exchange(m_breakWouldBeLost, false)) {
        writeAnchorParagraph(m_sink, {});
        m_afterTable = false;
    }
}

void FlowWriter::write(const model::Document &document)
{
    const std::vector<Margins> margins = pageMargins(document);
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const model::Page &page = document.pages[i];
        m_pending.bookmark = u"page%1"_s.arg(page.number);
        m_hasPending = true;
        const bool newPage = i == 0 || m_form.pages || page.scanned || document.pages[i - 1].scanned;
        if (newPage) {
            closeBefore();
            const QString master = m_masters.name(page, margins[i], m_form.pages && !page.scanned);
            m_pending.breakBefore = i > 0 && master == m_masterPage;
            m_pending.masterPage = master == m_masterPage ? QString() : master;
            m_masterPage = master;
        }
        m_firstAbove = m_form.places ? std::max(0.0, page.content.top - margins[i].top) : 0;
        if (page.scanned) {
            writeScan(page);
        } else {
            writePage(page, margins[i]);
        }
        if (m_form.pages) {
            flushBreak();
        }
    }
    flushBreak();
}

void FlowWriter::writeScan(const model::Page &page)
{
    beginAnchorParagraph(m_sink, std::exchange(m_pending, {}));
    m_hasPending = false;
    writePictures(m_sink, page, m_pictures, FrameAnchor::Behind);
    m_sink.xml.writeEndElement();
    m_breakWouldBeLost = true;
}

void FlowWriter::writePicturesBehind(const model::Page &page)
{
    for (const model::Section &section : page.sections) {
        for (const model::Block &block : section.blocks) {
            const model::Picture *picture = block.picture();
            if (picture && isBehindText(page, *picture)) {
                beginAnchorParagraph(m_sink, std::exchange(m_pending, {}));
                m_hasPending = false;
                writePicture(
                    m_sink, m_pictures.encode(page.number, picture->box, picture->kind), picture->box,
                    FrameAnchor::Behind);
                m_sink.xml.writeEndElement();
            }
        }
    }
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

void FlowWriter::beginColumns(const model::Page &page, const model::Section &section, const Margins &margins)
{
    Element columns{"style:columns"_L1, {{"fo:column-count"_L1, QString::number(section.columns.size())}}};
    double from = section.columns.front().left;
    for (std::size_t i = 0; i < section.columns.size(); ++i) {
        const model::Box &column = section.columns[i];
        const bool isLast = i + 1 == section.columns.size();
        const double to = isLast ? column.right : (column.right + section.columns[i + 1].left) / 2;
        columns.children.push_back(
            {"style:column"_L1,
             {{"style:rel-width"_L1, QString::number(std::max(1L, std::lround(20 * (to - from)))) + u'*'},
              {"fo:start-indent"_L1, pt(column.left - from)},
              {"fo:end-indent"_L1, pt(to - column.right)}}});
        from = to;
    }
    const QString style = m_sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"section"_s}},
         {{"style:section-properties"_L1,
           {{"fo:margin-left"_L1, pt(section.columns.front().left - margins.left)},
            {"fo:margin-right"_L1, pt(page.width - margins.right - section.columns.back().right)}},
           {columns}}}});
    m_sink.xml.writeStartElement("text:section"_L1);
    m_sink.xml.writeAttribute("text:style-name"_L1, style);
    m_sink.xml.writeAttribute("text:name"_L1, u"Columns %1"_s.arg(++m_sections));
}

void FlowWriter::writeSection(const model::Page &page, const model::Section &section, const Margins &margins)
{
    const bool rightToLeft = section.columns.size() > 1 && section.columns.front().left > section.columns.back().left;
    const bool inColumns = m_form.columns && section.columns.size() > 1 && !rightToLeft;
    if (inColumns) {
        flushBreak();
        closeBefore();
        beginColumns(page, section, margins);
    }
    std::vector<Area> areas;
    for (const model::Box &column : section.columns) {
        const bool ownStrip = inColumns || !m_form.places;
        areas.push_back(
            {ownStrip ? column.left : margins.left, ownStrip ? column.right : page.width - margins.right, 0});
    }
    const model::Picture *picture = nullptr;
    for (const model::Block &block : section.blocks) {
        if (picture && isLabelOf(block, *picture)) {
            writeLabels(*block.paragraph());
            continue;
        }
        picture = block.picture();
        const auto column = std::min(static_cast<std::size_t>(std::max(0, block.column)), areas.size() - 1);
        writeBlock(page, block, section.columns[column], areas[column]);
    }
    if (inColumns) {
        m_sink.xml.writeEndElement();
        m_breakWouldBeLost = true;
        m_afterTable = false;
    }
}

void FlowWriter::writeBlock(const model::Page &page, const model::Block &block, const model::Box &column, Area &area)
{
    if (const model::Paragraph *paragraph = block.paragraph()) {
        writeParagraphBlock(page, *paragraph, column, area);
        m_afterTable = false;
    } else if (const model::Table *table = block.table()) {
        flushBreak();
        closeBefore();
        if (m_afterTable) {
            writeAnchorParagraph(m_sink, {});
        }
        TablePlace place;
        place.left = table->box.left - area.left;
        place.above = m_firstAbove + (area.bottom > 0 ? std::max(0.0, table->box.top - area.bottom) : 0);
        place.exactLeading = m_form.places;
        writeTable(m_sink, *table, place);
        m_afterTable = true;
    } else if (const model::Picture *picture = block.picture()) {
        if (m_form.pages && isBehindText(page, *picture)) {
            return;
        }
        writePictureBlock(page, *picture, area);
        m_afterTable = false;
    }
    m_firstAbove = 0;
    area.bottom = block.box().bottom;
}

void FlowWriter::writeParagraphBlock(
    const model::Page &page, const model::Paragraph &paragraph, const model::Box &column, const Area &area)
{
    closeBefore();
    ParagraphPlace place = std::exchange(m_pending, {});
    m_hasPending = false;
    const Decoration decoration = decorationOf(page, paragraph.box);
    place.background = decoration.background;
    place.ruleAbove = decoration.above;
    place.ruleBelow = decoration.below;
    place.left = column.left - area.left;
    place.right = area.right - column.right;
    place.above = m_firstAbove;
    place.exactLeading = m_form.places;
    writeParagraph(m_sink, paragraph, place);
}

// The picture shows its labels; hidden, they can still be found.
void FlowWriter::writeLabels(const model::Paragraph &labels)
{
    const QString hidden = m_sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"text"_s}},
         {{"style:text-properties"_L1, {{"fo:font-size"_L1, u"1pt"_s}, {"text:display"_L1, u"none"_s}}}}});
    beginAnchorParagraph(m_sink, {});
    m_sink.xml.writeStartElement("text:span"_L1);
    m_sink.xml.writeAttribute("text:style-name"_L1, hidden);
    for (const model::Run &run : labels.runs) {
        writeText(m_sink.xml, run.text);
    }
    m_sink.xml.writeEndElement();
    m_sink.xml.writeEndElement();
}

void FlowWriter::writePictureBlock(const model::Page &page, const model::Picture &picture, const Area &area)
{
    closeBefore();
    model::Paragraph holder;
    holder.indentLeft = std::max(0.0, picture.box.left - area.left);
    holder.spaceBefore = m_firstAbove + (area.bottom > 0 ? std::max(0.0, picture.box.top - area.bottom) : 0);
    ParagraphPlace place = std::exchange(m_pending, {});
    m_hasPending = false;
    place.exactLeading = false; // the line must grow to the picture's height
    m_sink.xml.writeStartElement("text:p"_L1);
    m_sink.xml.writeAttribute("text:style-name"_L1, m_sink.styles.name(paragraphStyle(holder, place)));
    model::Box box = picture.box;
    const double widest = area.right - area.left;
    if (box.width() > widest && widest > 0) {
        box.bottom = box.top + box.height() * widest / box.width();
        box.right = box.left + widest;
    }
    writePicture(m_sink, m_pictures.encode(page.number, picture.box, picture.kind), box, FrameAnchor::Line);
    m_sink.xml.writeEndElement();
}

} // namespace

void writeFlow(OdfFile &file, const model::Document &document, model::PictureSource &pictures, const FlowForm &form)
{
    FlowWriter(file, pictures, form).write(document);
}

} // namespace quorra::office
