// SPDX-License-Identifier: GPL-3.0-or-later
#include "flow_plan.h"

#include "document/font_family.h"
#include "document/page_walk.h"
#include "odf/common_fonts.h"
#include "odf/font_widths.h"
#include "odf/line_breaking.h"
#include "odf/line_layout.h"
#include "page_marks.h"
#include "word_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double usualSpace = 12; ///< points; most between blocks that do not follow one another on the page
    double roomForBreak =
        90; ///< points; below a column that is certain not to run over: word processors set text longer
    std::size_t longText = 4; ///< lines; paragraphs of columns of text are this long
    double sameEdge = 12;     ///< points; columns whose edge is nearer to that of the page's text begin or end there
    double minBeside = 0.5;   ///< share of the height of the lower one of two pictures side by side
    double wideFont = 1.1;    ///< times the width: by which the font that replaces an unknown one may be wider
};
constexpr Thresholds thresholds;

/// The strip that contains blocks and how far it is filled. In points.
struct Area
{
    double left = 0;
    double right = 0;
    double bottom = 0;              // of what is planned so far, on the page
    std::optional<double> baseline; // the last one so far, where the last block has one
    bool begun = false;             // it contains text of the document
    bool followsOther = false;      // what comes next did not follow on the page what came last
};

/// Whether one of several columns has a paragraph of many lines. Text that is only placed side by side has none.
/// Without their own strips, such columns would fill twice the pages.
bool hasLongParagraphInColumns(const model::Section &section)
{
    return section.columns.size() > 1 &&
           std::any_of(section.blocks.begin(), section.blocks.end(), [](const model::Block &block) {
               return block.paragraph() && block.paragraph()->lines.size() >= thresholds.longText;
           });
}

/// The column of the line; the number of columns for a line outside the section.
std::size_t columnAt(const model::Section &section, const Box &line)
{
    const auto at = std::find_if(section.columns.begin(), section.columns.end(), [&](const Box &column) {
        return column.contains(line.centreX(), line.centreY());
    });
    return static_cast<std::size_t>(at - section.columns.begin());
}

/// Where the first line, table or picture of the section begins.
double topOf(const model::Section &section)
{
    std::optional<double> top;
    for (const model::Block &block : section.blocks) {
        const double own = block.paragraph() ? lineLayout(*block.paragraph()).top : block.box().top;
        top = std::min(top.value_or(own), own);
    }
    return top.value_or(0);
}

/// Notes that the paragraph, which is in areas[own], took over lines from further columns: these have begun then.
void noteLines(
    const model::Paragraph &paragraph, const model::Section &section, std::vector<Area> &areas, std::size_t own)
{
    for (const model::Line &line : paragraph.lines) {
        const std::size_t at = columnAt(section, line.box);
        const bool outside = line.box.left > paragraph.box.right || line.box.right < paragraph.box.left;
        if (outside && at < areas.size() && at != own) {
            areas[at].begun = true;
            areas[at].bottom = line.box.bottom;
            areas[at].baseline = line.baseline;
            areas[own].followsOther = true;
        }
    }
}

/// The first baseline of the block that follows this one in its column; nothing when that is no paragraph.
std::optional<double> baselineAfter(const model::Section &section, std::size_t block)
{
    if (block + 1 >= section.blocks.size() || section.blocks[block + 1].column != section.blocks[block].column) {
        return {};
    }
    const model::Paragraph *next = section.blocks[block + 1].paragraph();
    return next ? firstBaseline(*next) : std::nullopt;
}

/// Whether the block is a heading with an entry of a table of contents directly below it.
bool headsContents(const model::Section &section, std::size_t block)
{
    if (block + 1 >= section.blocks.size()) {
        return false;
    }
    const model::Paragraph *heading = section.blocks[block].paragraph();
    const model::Paragraph *next = section.blocks[block + 1].paragraph();
    return heading && heading->headingLevel > 0 && next && next->contentsEntry;
}

/// Returns whether the output text is about as wide as on the page.
bool keepsWidth(const model::Style &style)
{
    const model::FontFamily *known = model::findFontFamily(style.family);
    return known && known->widths != model::FontWidths::Unknown;
}

double likelyWidth(const model::Word &word)
{
    const double drawn = word.rotation % 180 == 0 ? word.box.width() : word.box.height();
    if (hasCommonWidths(*word.style) || keepsWidth(*word.style)) {
        return drawn; // wider characters are narrowed to it
    }
    return thresholds.wideFont * std::max(drawn, textWidth(word.text, *word.style).value_or(drawn));
}

/// Returns the marks of the block of the page that is nearest to a point, or the first of these; without an x
/// coordinate, of the block whose top is nearest to the y coordinate. Returns the marks of the page if it has no
/// blocks.
Marks &marksNear(FlowPage &page, std::optional<double> x, double y)
{
    Marks *nearest = &page.marks;
    double least = std::numeric_limits<double>::max();
    for (FlowSection &section : page.sections) {
        for (FlowItem &item : section.items) {
            const Box box = item.block->box();
            const double across = x ? *x - std::clamp(*x, box.left, box.right) : 0;
            const double down = x ? y - std::clamp(y, box.top, box.bottom) : y - box.top;
            const double distance = std::hypot(across, down);
            if (distance < least) {
                least = distance;
                nearest = &item.marks;
            }
        }
    }
    return *nearest;
}

/// Returns the height that the line drawn below the paragraph takes.
double heightOfBorderBelow(const model::Paragraph &paragraph)
{
    const model::ParagraphBorder &border = paragraph.borderBelow;
    return border.line.width > 0 ? border.gap + border.line.width : 0;
}

bool isSideways(const model::Paragraph &paragraph)
{
    return paragraph.rotation % 180 != 0;
}

/// Returns whether most paragraphs of the page run across it, so that others stand beside its text.
bool runsAcross(const model::Page &page)
{
    int across = 0;
    model::forEachBlock(page, [&across](const model::Block &block) {
        if (const model::Paragraph *paragraph = block.paragraph()) {
            across += isSideways(*paragraph) ? -1 : 1;
        }
    });
    return across > 0;
}

/// Returns whether the picture stands to the right of the other one, next to most of its height or its own.
bool standsBeside(const Box &picture, const Box &other)
{
    const double shared = std::min(picture.bottom, other.bottom) - std::max(picture.top, other.top);
    return picture.left >= other.right - thresholds.sameEdge &&
           shared > thresholds.minBeside * std::min(picture.height(), other.height());
}

/// Returns whether the picture stands beside the last item of the section, a picture of the same column.
bool isBesideLast(const model::Block &picture, const FlowSection &planned)
{
    if (planned.items.empty()) {
        return false;
    }
    const FlowItem &last = planned.items.back();
    return last.block->figure() && !last.isPlaced() && last.block->column == picture.column &&
           standsBeside(picture.box(), last.block->box());
}

/// Returns the width for the lines of the item's paragraph. A single left-aligned line can extend to the margin.
double textWidth(const FlowItem &item)
{
    const model::Paragraph &paragraph = *item.block->paragraph();
    const bool extends = paragraph.lines.size() == 1 && paragraph.alignment == model::Alignment::Left;
    const double right = extends ? std::max(item.right, item.column.right) : item.column.right - paragraph.indentRight;
    return right - item.column.left - paragraph.indentLeft;
}

class PagePlanner
{
public:
    PagePlanner(const model::Page &page, const Margins &margins, const FlowForm &form)
        : m_page(page)
        , m_margins(margins)
        , m_form(form)
        , m_framesSideways(form.frames && runsAcross(page))
        , m_end(textEnd(page, margins, page.footer))
        , m_bottom(form.places ? margins.top : page.content.top)
    {}

    FlowPage plan();

private:
    FlowSection planSection(const model::Section &section);
    double columnsEdge(double own, double page) const;
    std::vector<Area> areasOf(const FlowSection &planned) const;
    void addItems(FlowSection &planned, std::vector<Area> &areas) const;
    void planText(FlowItem &item, Area &area, std::optional<double> baselineAfter) const;
    void planPictureOrTable(FlowItem &item, Area &area) const;
    double spaceAbove(const Area &area, double top) const;

    const model::Page &m_page;
    const Margins &m_margins;
    const FlowForm &m_form;
    bool m_framesSideways; // text that runs up or down gets frames
    double m_end;          // of the room for the page's text
    double m_bottom;       // of the sections so far
};

FlowPage PagePlanner::plan()
{
    FlowPage planned;
    planned.page = &m_page;
    planned.margins = m_margins;
    planned.room = m_end - m_margins.top;
    if (!m_page.scanned) {
        for (const model::Section &section : m_page.sections) {
            planned.sections.push_back(planSection(section));
        }
    }
    return planned;
}

FlowSection PagePlanner::planSection(const model::Section &section)
{
    FlowSection planned;
    planned.section = &section;
    planned.inColumns = m_form.columns && canHaveColumns(section);
    if (planned.inColumns && m_form.places) {
        planned.spaceAbove = std::max(0.0, topOf(section) - m_bottom);
    }
    planned.left = columnsEdge(section.columns.front().left, m_margins.left);
    planned.right = columnsEdge(section.columns.back().right, m_page.width - m_margins.right);
    std::vector<Area> areas = areasOf(planned);
    addItems(planned, areas);
    for (const Area &area : areas) {
        m_bottom = std::max(m_bottom, area.bottom);
    }
    return planned;
}

/// Returns where the columns begin or end, given their own edge and that of the page's text. Paragraphs get the
/// difference as an indent.
double PagePlanner::columnsEdge(double own, double page) const
{
    return !m_form.columnMargins || std::abs(own - page) < thresholds.sameEdge ? page : own;
}

/// The areas of a section's columns, before anything is put in them.
std::vector<Area> PagePlanner::areasOf(const FlowSection &planned) const
{
    const model::Section &section = *planned.section;
    const bool inColumns = planned.inColumns;
    const bool ownStrip = inColumns || !m_form.places || hasLongParagraphInColumns(section);
    const double top = topOf(section);
    std::vector<Area> areas;
    for (const Box &column : section.columns) {
        Area area;
        area.left = ownStrip ? column.left : m_margins.left;
        area.right = ownStrip ? column.right : m_page.width - m_margins.right;
        // A column that comes below the one before it has nothing to do with that one's end.
        area.bottom = inColumns || !areas.empty() ? top : m_bottom;
        areas.push_back(area);
    }
    if (inColumns) {
        areas.front().left = planned.left;
        areas.back().right = planned.right;
    }
    return areas;
}

double PagePlanner::spaceAbove(const Area &area, double top) const
{
    const double space = std::max(0.0, top - area.bottom);
    return m_form.places && !area.followsOther ? space : std::min(space, thresholds.usualSpace);
}

void PagePlanner::planText(FlowItem &item, Area &area, std::optional<double> baselineAfter) const
{
    const model::Paragraph &paragraph = *item.block->paragraph();
    const LineLayout layout = lineLayout(paragraph, area.baseline, baselineAfter);
    item.spaceAbove = spaceAbove(area, layout.top);
    item.lineHeight = layout.lineHeight;
    item.lines = likelyLines(paragraph, textWidth(item));
    item.height = heightOfBorderBelow(paragraph);
    area.bottom = layout.bottom + item.height;
    area.baseline = lastBaseline(paragraph);
}

void PagePlanner::planPictureOrTable(FlowItem &item, Area &area) const
{
    const Box box = item.block->box();
    if (item.beside) {
        item.height = std::max(0.0, box.bottom - area.bottom);
        area.bottom = std::max(area.bottom, box.bottom);
        return;
    }
    item.spaceAbove = spaceAbove(area, box.top);
    item.height = box.height();
    area.bottom = box.bottom;
    area.baseline.reset();
}

void PagePlanner::addItems(FlowSection &planned, std::vector<Area> &areas) const
{
    const model::Section &section = *planned.section;
    std::size_t before = 0;
    for (std::size_t i = 0; i < section.blocks.size(); ++i) {
        const model::Block &block = section.blocks[i];
        const auto column = std::min(static_cast<std::size_t>(std::max(0, block.column)), areas.size() - 1);
        Area &area = areas[column];
        FlowItem item;
        item.block = &block;
        item.column = section.columns[column];
        item.left = area.left;
        item.right = area.right;
        // A column that begins with a paragraph of its own begins there in the text as well, unless the one before it
        // is full: a line too many in that one would leave a page with nothing else.
        const bool full = areas[before].bottom > m_end - thresholds.roomForBreak;
        item.beginsColumn = planned.inColumns && column > before && !area.begun && !full;
        before = column;
        item.behindText = m_form.pages && block.figure() && block.figure()->behindText;
        item.sideways = m_framesSideways && block.paragraph() && isSideways(*block.paragraph());
        if (item.isPlaced()) {
            planned.items.push_back(item);
            continue;
        }
        if (block.paragraph()) {
            planText(item, area, baselineAfter(section, i));
        } else {
            item.beside = m_form.places && block.figure() && isBesideLast(block, planned);
            planPictureOrTable(item, area);
        }
        area.begun = true;
        area.followsOther = false;
        if (block.paragraph()) {
            noteLines(*block.paragraph(), section, areas, column);
        }
        item.headsContents = headsContents(section, i);
        planned.items.push_back(item);
    }
}

} // namespace

int likelyLines(const model::Paragraph &paragraph, double width)
{
    const TextMeasure measure{likelyWidth, [](const model::Style &style) { return usualSpaceWidth * style.size; }};
    return countLines(unbreakableTexts(paragraph, measure), {.width = width, .firstIndent = paragraph.firstLineIndent});
}

FlowPage planPage(const model::Page &page, const Margins &margins, const FlowForm &form)
{
    return PagePlanner(page, margins, form).plan();
}

namespace {

/// Adds link targets, bookmarks of the outline, and comments to the plans of all pages.
void addMarks(std::vector<FlowPage> &pages, const model::Document &document)
{
    for (FlowPage &page : pages) {
        page.marks = pageMarks(*page.page);
        for (const model::Comment &comment : page.page->comments) {
            marksNear(page, comment.box.centreX(), comment.box.centreY()).comments.push_back(&comment);
        }
    }
    for (const OutlineBookmark &bookmark : outlineBookmarks(document)) {
        const auto page = std::find_if(pages.begin(), pages.end(), [&bookmark](const FlowPage &each) {
            return each.page->number == bookmark.page;
        });
        if (page != pages.end()) {
            marksNear(*page, {}, bookmark.top).bookmarks.push_back(bookmark.name);
        }
    }
}

} // namespace

std::vector<FlowPage> planFlow(const model::Document &document, const FlowForm &form)
{
    const std::vector<Margins> margins = pageMargins(document);
    const std::vector<PageStyle> styles =
        form.pages ? planPageStyles(document, margins, form) : std::vector<PageStyle>();
    std::vector<FlowPage> pages;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const model::Page &page = document.pages[i];
        pages.push_back(planPage(page, margins[i], form));
        pages.back().style = form.pages ? styles[i] : PageStyle();
        pages.back().newPage = i == 0 || form.pages || page.scanned || document.pages[i - 1].scanned;
    }
    addMarks(pages, document);
    return pages;
}

} // namespace quorra::office
