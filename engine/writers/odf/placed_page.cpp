// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/placed_page.h"

#include "document/page_walk.h"
#include "odf/exact_lines.h"
#include "odf/line_layout.h"
#include "odf/odf_tables.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double maxOverlap = 0.5;     ///< line distances; by which paragraphs of a text block overlap
    double maxGap = 1.8;         ///< line distances; between paragraphs of a text block
    double minSharedWidth = 0.5; ///< share of the narrower one's width; that is below the other
    double spareWidth = 0.06;    ///< share of the width; by which text may be wider in another font
    double minSpare = 4;         ///< points; added to that for narrow text
};
constexpr Thresholds thresholds;

double lineDistanceOf(const model::Paragraph &paragraph)
{
    return paragraph.lineDistance > 0 ? paragraph.lineDistance : lineHeights.usual * largestSize(paragraph);
}

bool belongsTo(const TextBlock &block, const model::Paragraph &paragraph)
{
    const model::Paragraph &last = *block.paragraphs.back();
    return last.rotation == paragraph.rotation &&
           isCloseBelow(paragraph.box, lineDistanceOf(paragraph), block.box, last.box.bottom);
}

void writeTextBlock(const Sink &sink, const model::Page &page, const TextBlock &block, FrameAnchor anchor)
{
    const bool justified = std::any_of(block.paragraphs.begin(), block.paragraphs.end(), [](const auto *each) {
        return each->alignment == model::Alignment::Justify && each->lines.size() > 1;
    });
    // Justified lines have the full width of the text; in a wider frame they would wrap at other words.
    const Box room = justified ? block.box : roomyBox(page, block.box);
    const TextFrame frame = beginTextFrame(sink, room, anchor, anchor == FrameAnchor::Page);
    double bottom = block.box.top;
    for (const model::Paragraph *paragraph : block.paragraphs) {
        // Indents refer to the frame, not to the column.
        model::Paragraph framed = *paragraph;
        framed.indentLeft = paragraph->box.left - room.left + std::max(0.0, -paragraph->firstLineIndent);
        framed.indentRight = 0;
        framed.indentLeft = std::max(framed.indentLeft, 0.0);
        if (paragraph->lines.size() < 2) {
            framed.firstLineIndent = std::min(0.0, paragraph->firstLineIndent);
        }
        framed.spaceBefore = paragraph->box.top - bottom;
        ParagraphPlace place;
        place.list = sink.listPlace(*paragraph);
        place.withHeadings = anchor == FrameAnchor::Page;
        writeParagraph(sink, framed, place);
        bottom = paragraph->box.bottom;
    }
}

void writePlacedTable(const Sink &sink, const model::Table &table, FrameAnchor anchor)
{
    const TextFrame frame = beginTextFrame(sink, table.box, anchor, true);
    writeTable(sink, table, {});
    writeAnchorParagraph(sink, {});
}

} // namespace

bool isCloseBelow(const Box &paragraph, double lineDistance, const Box &text, double textBottom)
{
    const double gap = paragraph.top - textBottom;
    const double shared = std::min(text.right, paragraph.right) - std::max(text.left, paragraph.left);
    return gap > -thresholds.maxOverlap * lineDistance && gap < thresholds.maxGap * lineDistance &&
           shared > thresholds.minSharedWidth * std::min(text.width(), paragraph.width());
}

std::vector<TextBlock> textBlocks(const model::Page &page, bool joined)
{
    std::vector<TextBlock> blocks;
    const auto add = [&](const model::Paragraph &paragraph, bool mayJoin) {
        if (mayJoin && belongsTo(blocks.back(), paragraph)) {
            blocks.back().paragraphs.push_back(&paragraph);
            blocks.back().box = united(blocks.back().box, paragraph.box);
        } else {
            blocks.push_back({paragraph.box, {&paragraph}});
        }
    };
    for (const model::Section &section : page.sections) {
        const model::Block *before = nullptr;
        for (const model::Block &block : section.blocks) {
            if (const model::Figure *figure = block.figure()) {
                for (const model::Paragraph &label : figure->labels) {
                    blocks.push_back({label.box, {&label}, true});
                }
            } else if (const model::Paragraph *paragraph = block.paragraph()) {
                add(*paragraph, joined && before && before->paragraph() && before->column == block.column);
            }
            before = &block;
        }
    }
    for (const auto *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            add(paragraph, false);
        }
    }
    return blocks;
}

Box roomyBox(const model::Page &page, const Box &box)
{
    double farthest = page.width;
    const auto keepOff = [&](const Box &near) {
        const bool beside = near.top < box.bottom && near.bottom > box.top;
        if (beside && near.left >= box.right) {
            farthest = std::min(farthest, near.left);
        }
    };
    forEachBlock(page, [&](const model::Block &other) { keepOff(other.box()); });
    for (const auto *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            keepOff(paragraph.box);
        }
    }
    Box room = box;
    room.right =
        std::max(box.right, std::min(farthest, box.right + thresholds.minSpare + thresholds.spareWidth * box.width()));
    return room;
}

void writeBackground(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor)
{
    if (page.background) {
        const model::EncodedPicture background = pictures.background(page.number);
        if (!background.bytes.isEmpty()) {
            writePicture(sink, background, *page.background, anchor);
            return;
        }
    }
    for (const model::Fill &fill : visibleFills(page)) {
        writeFill(sink, fill, anchor);
    }
    writePictures(sink, page, pictures, anchor);
    for (const model::Rule &rule : page.rules) {
        writeRule(sink, rule, anchor);
    }
}

void writePlacedPage(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor)
{
    writeBackground(sink, page, pictures, anchor == FrameAnchor::Page ? FrameAnchor::Behind : anchor);
    for (const TextBlock &block : textBlocks(page, anchor == FrameAnchor::Page)) {
        if (block.labels) {
            writeExactLines(sink, *block.paragraphs.front(), page.width, anchor);
        } else {
            writeTextBlock(sink, page, block, anchor);
        }
    }
    forEachBlock(page, [&](const model::Block &block) {
        if (const model::Table *table = block.table()) {
            writePlacedTable(sink, *table, anchor);
        }
    });
}

} // namespace quorra::office
