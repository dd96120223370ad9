// SPDX-License-Identifier: GPL-3.0-or-later
#include "word/word_flow.h"

#include "document/page_walk.h"
#include "flow_breaks.h"
#include "flow_fit.h"
#include "flow_plan.h"
#include "odf/exact_lines.h"
#include "odf/odf_frames.h"
#include "odf/odf_tables.h"
#include "page_layout.h"
#include "word_columns.h"
#include "word_contents.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double rounding = 0.5; ///< points; by which word processors may set pictures side by side wider
};
constexpr Thresholds thresholds;

/// Writes a plan, block by block.
class FlowWriter
{
public:
    FlowWriter(OdfFile &file, model::PictureSource &pictures, const FlowForm &form, Notes notes, model::ListPlan lists)
        : m_notes(std::move(notes))
        , m_lists(std::move(lists))
        , m_sink{file.body(), file.styles(), &m_notes, &m_lists}
        , m_masters({file.masters(), file.styles()})
        , m_pictures(pictures)
        , m_form(form)
        , m_breaks(m_sink, form.separateBreaks)
    {}

    void writePage(const FlowPage &page);
    void finish()
    {
        m_contents.reset();
        m_breaks.flush();
    }

private:
    void beginPage(const FlowPage &page);
    void writeScan(const model::Page &page);
    void writeSection(const FlowPage &page, const FlowSection &section);
    void placeInContents(const FlowItem &item);
    void writeItem(const std::vector<const FlowItem *> &row);
    void writeText(const FlowItem &item);
    void writePartialBorder(const FlowItem &item, ParagraphPlace place);
    void writeTableItem(const FlowItem &item);
    void writeFiguresInText(const std::vector<const FlowItem *> &items);
    void writeFigureBehind(const model::Figure &figure);
    void writeSideways(const model::Paragraph &paragraph, double pageWidth);
    void writeLabels(const model::Figure &figure);

    Notes m_notes;
    model::ListPlan m_lists;
    Sink m_sink;
    MasterPages m_masters;
    model::PictureSource &m_pictures;
    FlowForm m_form;
    FlowBreaks m_breaks;
    QString m_masterPage;
    int m_sections = 0;
    std::optional<ContentsField> m_contents; ///< while its entries are written
    int m_contentsFields = 0;
};

void FlowWriter::beginPage(const FlowPage &page)
{
    m_breaks.addMarks(page.marks);
    if (page.newPage) {
        const bool withHeaders = m_form.pages && !page.page->scanned;
        const QString master =
            withHeaders ? m_masters.name(page.style, page.margins) : m_masters.name(*page.page, page.margins);
        const bool goesOn = master == m_masterPage && !page.style.firstNumber;
        if (!goesOn) {
            m_contents.reset(); // LibreOffice ignores page styles inside it
        }
        m_breaks.addPage(goesOn ? QString() : master, goesOn, page.style.firstNumber);
        m_masterPage = master;
    }
}

void FlowWriter::writePage(const FlowPage &page)
{
    beginPage(page);
    if (page.page->scanned) {
        writeScan(*page.page);
    }
    for (const FlowSection &section : page.sections) {
        for (const FlowItem &item : section.items) {
            if (item.behindText) {
                writeFigureBehind(*item.block->figure());
            } else if (item.sideways) {
                writeSideways(*item.block->paragraph(), page.page->width);
            }
        }
    }
    for (const FlowSection &section : page.sections) {
        writeSection(page, section);
    }
    if (m_form.pages) {
        m_breaks.flush();
    }
}

void FlowWriter::writeScan(const model::Page &page)
{
    const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
    writePictures(m_sink, page, m_pictures, FrameAnchor::Behind);
    m_breaks.afterColumns();
}

void FlowWriter::writeFigureBehind(const model::Figure &figure)
{
    const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
    writePicture(m_sink, m_pictures.encode(figure, model::DrawingWords::InPicture), figure.box, FrameAnchor::Behind);
}

void FlowWriter::writeSideways(const model::Paragraph &paragraph, double pageWidth)
{
    const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
    writeExactLines(m_sink, paragraph, pageWidth, FrameAnchor::Page);
}

void FlowWriter::writeSection(const FlowPage &page, const FlowSection &section)
{
    std::optional<XmlElement> columns;
    if (section.inColumns) {
        m_contents.reset();
        m_breaks.writeSpaceAboveColumns(section.spaceAbove);
        columns.emplace(beginColumns(m_sink, *page.page, section, page.margins, ++m_sections));
    }
    for (auto item = section.items.begin(); item != section.items.end();) {
        if (item->beginsColumn) {
            m_breaks.addColumn();
        }
        std::vector<const FlowItem *> row{&*item};
        for (++item; item != section.items.end() && item->beside; ++item) {
            row.push_back(&*item);
        }
        placeInContents(*row.front());
        writeItem(row);
    }
    if (section.inColumns) {
        m_contents.reset();
        columns.reset();
        m_breaks.afterColumns();
    }
}

/// Begins a table of contents before its first entry, and ends it after the last.
void FlowWriter::placeInContents(const FlowItem &item)
{
    const model::Paragraph *paragraph = item.block->paragraph();
    if (!paragraph || !paragraph->contentsEntry) {
        m_contents.reset();
    } else if (!m_contents) {
        m_contents.emplace(m_sink.xml, ++m_contentsFields, contentsLevels);
    }
}

/// Writes an item, with the pictures beside it.
void FlowWriter::writeItem(const std::vector<const FlowItem *> &row)
{
    const FlowItem &item = *row.front();
    for (const FlowItem *each : row) {
        m_breaks.addMarks(each->marks);
    }
    const model::Paragraph *paragraph = item.block->paragraph();
    if (paragraph && paragraph->note && m_notes.count(*paragraph->note) > 0) {
        return; // it is written at its mark
    }
    if (item.sideways) {
        return; // so has this
    }
    if (paragraph) {
        writeText(item);
    } else if (item.block->table()) {
        writeTableItem(item);
    } else if (!item.behindText) {
        writeFiguresInText(row);
    } else if (!item.block->figure()->labels.empty()) { // the picture has been written
        const XmlElement holder = beginAnchorParagraph(m_sink, m_breaks.take());
        writeLabels(*item.block->figure());
    }
}

void FlowWriter::writeTableItem(const FlowItem &item)
{
    const model::Table &table = *item.block->table();
    m_breaks.writeSpace(item.spaceAbove);
    TablePlace place;
    place.left = table.box.left - item.left;
    place.exactLeading = m_form.places;
    place.repeatsHeader = !m_form.pages; // LibreOffice would end such tables before the end of the page
    writeTable(m_sink, table, place);
    m_breaks.afterTable();
}

/// A border has the width of its paragraph: a partial one gets an empty paragraph of its own.
void FlowWriter::writePartialBorder(const FlowItem &item, ParagraphPlace place)
{
    const model::Paragraph &paragraph = *item.block->paragraph();
    const double start = paragraph.box.left + paragraph.borderAbove.start;
    place.ruleBelow = paragraph.borderAbove.line;
    place.gapBelow = 0;
    place.left = start - item.left;
    place.right = item.right - (start + paragraph.borderAbove.length);
    writeAnchorParagraph(m_sink, place);
}

void FlowWriter::writeText(const FlowItem &item)
{
    ParagraphPlace place = m_breaks.take();
    model::Paragraph placed = *item.block->paragraph();
    placed.spaceBefore = item.spaceAbove;
    const model::ParagraphBorder &above = placed.borderAbove;
    if (above.line.width > 0) { // is drawn in that space
        placed.spaceBefore = std::max(0.0, item.spaceAbove - above.gap - above.line.width);
    }
    if (above.partial) {
        place.above = std::exchange(placed.spaceBefore, above.gap);
        writePartialBorder(item, std::exchange(place, {}));
    } else {
        place.ruleAbove = above.line;
    }
    place.background = placed.shading;
    place.ruleBelow = placed.borderBelow.line;
    place.gapAbove = above.gap;
    place.gapBelow = placed.borderBelow.gap;
    place.left = item.column.left - item.left;
    place.right = item.right - item.column.right;
    place.exactLeading = m_form.places;
    place.lineHeight = item.lineHeight;
    place.linesGrow = true;
    place.headsContents = item.headsContents;
    place.list = m_sink.listPlace(*item.block->paragraph());
    writeParagraph(m_sink, placed, place);
}

/// The picture shows its labels. As hidden text, they can be searched for.
void FlowWriter::writeLabels(const model::Figure &figure)
{
    const QString hidden = m_sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"text"_s}},
         {{"style:text-properties"_L1, {{"fo:font-size"_L1, u"1pt"_s}, {"text:display"_L1, u"none"_s}}}}});
    for (const model::Paragraph &label : figure.labels) {
        const XmlElement span(m_sink.xml, "text:span"_L1);
        m_sink.xml.writeAttribute("text:style-name"_L1, hidden);
        for (const model::Run &run : model::runsOf(label)) {
            office::writeText(m_sink.xml, run.text);
        }
        office::writeText(m_sink.xml, u" "_s);
    }
}

/// Writes pictures that stand side by side, each but the first one at a tab stop; wider ones than there is room for
/// become smaller.
void FlowWriter::writeFiguresInText(const std::vector<const FlowItem *> &items)
{
    const FlowItem &first = *items.front();
    const double right = items.back()->block->box().right;
    model::Paragraph holder;
    holder.indentLeft = std::max(0.0, first.block->box().left - first.left);
    holder.spaceBefore = first.spaceAbove;
    const double start = first.left + holder.indentLeft;
    const double reserve = items.size() > 1 ? thresholds.rounding : 0;
    const double widest = first.right - start - reserve;
    const double scale = widest > 0 ? std::min(1.0, widest / (right - first.block->box().left)) : 1;
    const auto place = [&](double x) { return start + scale * (x - first.block->box().left); };
    const auto isApart = [&items](std::size_t i) {
        return items[i]->block->box().left > items[i - 1]->block->box().right + thresholds.rounding;
    };
    for (std::size_t i = 1; i < items.size(); ++i) {
        if (isApart(i)) {
            holder.tabStops.push_back({place(items[i]->block->box().left) - first.left, model::Alignment::Left, false});
        }
    }
    ParagraphPlace inText = m_breaks.take();
    inText.exactLeading = false; // the line must grow to the picture's height
    const XmlElement element = beginAnchorParagraph(m_sink, inText, holder);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0 && isApart(i)) {
            m_sink.xml.writeEmptyElement("text:tab"_L1);
        }
        const model::Figure &figure = *items[i]->block->figure();
        const Box box{0, 0, scale * figure.box.width(), scale * figure.box.height()};
        writePicture(m_sink, m_pictures.encode(figure, model::DrawingWords::InPicture), box, FrameAnchor::Line);
        writeLabels(figure);
    }
}

} // namespace

namespace {

/// The notes whose marks are in the text of paragraphs and cells.
Notes notesOf(const model::Document &document)
{
    Notes notes;
    for (const model::Page &page : document.pages) {
        model::forEachBlock(page, [&notes](const model::Block &block) {
            const model::Paragraph *paragraph = block.paragraph();
            if (paragraph && paragraph->note && !paragraph->lines.empty()) {
                notes.emplace(*paragraph->note, Note{paragraph});
            }
        });
    }
    int counted = 0;
    for (auto &[id, note] : notes) {
        note.counted = note.text->lines.front().words.front().text == QString::number(counted + 1);
        counted += note.counted ? 1 : 0;
    }
    return notes;
}

} // namespace

void writeFlow(OdfFile &file, const model::Document &document, model::PictureSource &pictures, const FlowForm &form)
{
    FlowWriter writer(file, pictures, form, notesOf(document), model::planLists(document));
    for (FlowPage &page : planFlow(document, form)) {
        if (form.pages) {
            fitToRoom(page);
        }
        writer.writePage(page);
    }
    writer.finish();
}

} // namespace quorra::office
