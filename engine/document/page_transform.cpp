// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/page_transform.h"

#include "base/luma.h"
#include "document/page_walk.h"
#include "document/rotation.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

class Mover
{
public:
    /// Transforms a page that is unchanged so far to a page of that size. Scaled styles are added to the table.
    Mover(const Transform &transform, const Page &page, double width, double height, StyleTable &styles)
        : m_t(transform)
        , m_size(std::min(transform.scaleX, transform.scaleY))
        , m_widthBefore(page.width)
        , m_heightBefore(page.height)
        , m_width(width)
        , m_height(height)
        , m_styles(styles)
    {}

    double x(double value) const { return value * m_t.scaleX + m_t.shiftX; }
    double y(double value) const { return value * m_t.scaleY + m_t.shiftY; }
    void move(Box &box) const { box = {x(box.left), y(box.top), x(box.right), y(box.bottom)}; }
    void move(Border &border) const { border.width *= m_size; }

    void move(Rule &rule) const
    {
        rule.x1 = x(rule.x1);
        rule.x2 = x(rule.x2);
        rule.y1 = y(rule.y1);
        rule.y2 = y(rule.y2);
        rule.width *= m_size;
    }

    void move(Paragraph &paragraph) const
    {
        const bool vertical = paragraph.rotation % 180 != 0;
        const double alongLines = vertical ? m_t.scaleY : m_t.scaleX;
        const double acrossLines = vertical ? m_t.scaleX : m_t.scaleY;
        for (double *indent : {&paragraph.indentLeft, &paragraph.indentRight, &paragraph.firstLineIndent}) {
            *indent *= alongLines;
        }
        for (TabStop &stop : paragraph.tabStops) {
            stop.position *= alongLines;
        }
        paragraph.spaceBefore *= acrossLines;
        paragraph.lineDistance *= acrossLines;
        for (ParagraphBorder *border : {&paragraph.borderAbove, &paragraph.borderBelow}) {
            move(border->line);
            border->gap *= acrossLines;
            border->start *= alongLines;
            border->length *= alongLines;
        }
        move(paragraph.box);
        for (Line &line : paragraph.lines) {
            move(line.box);
            line.baseline = baseline(line.baseline, line.rotation);
            for (Word &word : line.words) {
                move(word.box);
                word.baseline = baseline(word.baseline, word.rotation);
                word.style = scaled(word.style);
            }
        }
    }

    void move(Block &block) const
    {
        if (Figure *figure = block.figure()) {
            move(figure->box);
        } else if (Table *table = block.table()) {
            move(table->box);
            moveEdges(*table);
            for (Cell &cell : table->cells) {
                move(cell.box);
                for (Border *border : {&cell.left, &cell.top, &cell.right, &cell.bottom}) {
                    move(*border);
                }
            }
        }
    }

private:
    // The edges of a table are coordinates on the upright page: they are converted to the displayed page and back.
    void moveEdges(Table &table) const
    {
        const PageRotation before = rotationToPage(table.rotation, m_widthBefore, m_heightBefore);
        const PageRotation after = rotationToPage(table.rotation, m_width, m_height).inverse();
        const auto moved = [&](double uprightX, double uprightY) {
            const auto [pageX, pageY] = before.point(uprightX, uprightY);
            return after.point(x(pageX), y(pageY));
        };
        for (double &edge : table.columnEdges) {
            edge = moved(edge, 0).first;
        }
        for (double &edge : table.rowEdges) {
            edge = moved(0, edge).second;
        }
    }

    double baseline(double value, int rotation) const { return rotation % 180 == 0 ? y(value) : x(value); }

    StyleRef scaled(StyleRef style) const
    {
        Style own = *style;
        own.size *= m_size;
        return m_styles.add(own);
    }

    Transform m_t;
    double m_size;
    double m_widthBefore;
    double m_heightBefore;
    double m_width;
    double m_height;
    StyleTable &m_styles;
};

Colour reduced(Colour colour, ColourDepth depth, Colour inMono)
{
    if (depth == ColourDepth::Colour) {
        return colour;
    }
    if (depth == ColourDepth::Mono) {
        return inMono;
    }
    const auto gray = static_cast<Colour>(std::lround(lumaOf(colour)));
    return gray << 16 | gray << 8 | gray;
}

} // namespace

void transformPage(Page &page, StyleTable &styles, const Transform &transform, double width, double height)
{
    const Mover mover(transform, page, width, height, styles);
    page.width = width;
    page.height = height;
    mover.move(page.content);
    if (page.background) {
        mover.move(*page.background);
    }
    for (Section &section : page.sections) {
        std::for_each(section.columns.begin(), section.columns.end(), [&](Box &box) { mover.move(box); });
    }
    forEachBlock(page, [&](Block &block) { mover.move(block); });
    std::for_each(page.rules.begin(), page.rules.end(), [&](Rule &rule) { mover.move(rule); });
    std::for_each(page.fills.begin(), page.fills.end(), [&](Fill &fill) { mover.move(fill.box); });
    std::for_each(page.comments.begin(), page.comments.end(), [&](Comment &comment) { mover.move(comment.box); });
    forEachParagraph(page, [&](Paragraph &paragraph) { mover.move(paragraph); });
}

bool haveSameSize(const Page &a, const Page &b)
{
    constexpr double maxDifference = 1; // points
    return std::abs(a.width - b.width) < maxDifference && std::abs(a.height - b.height) < maxDifference;
}

void reduceColours(Document &document, ColourDepth depth)
{
    if (depth == ColourDepth::Colour) {
        return;
    }
    const auto dark = [depth](Colour &colour) { colour = reduced(colour, depth, black); };
    const auto light = [depth](Colour &colour) { colour = reduced(colour, depth, white); };
    document.styles.edit([&](Style &style) { dark(style.colour); });
    for (Page &page : document.pages) {
        std::for_each(page.rules.begin(), page.rules.end(), [&](Rule &rule) { dark(rule.colour); });
        // Black text must stay readable: backgrounds vanish in black and white.
        std::for_each(page.fills.begin(), page.fills.end(), [&](Fill &fill) { light(fill.colour); });
        forEachParagraph(page, [&](Paragraph &paragraph) {
            dark(paragraph.borderAbove.line.colour);
            dark(paragraph.borderBelow.line.colour);
            if (paragraph.shading) {
                light(*paragraph.shading);
            }
            if (paragraph.shading == white) {
                paragraph.shading.reset();
            }
        });
        forEachBlock(page, [&](Block &block) {
            if (Table *table = block.table()) {
                for (Cell &cell : table->cells) {
                    for (Border *border : {&cell.left, &cell.top, &cell.right, &cell.bottom}) {
                        dark(border->colour);
                    }
                    if (cell.background) {
                        light(*cell.background);
                    }
                }
            }
        });
    }
}

} // namespace quorra::model
