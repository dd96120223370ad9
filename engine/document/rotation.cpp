// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/rotation.h"

#include "base/characters.h"

#include <array>
#include <utility>

namespace quorra::model {

namespace {

// Rotates marks and text.
struct Rotator : PageRotation
{
    // The baseline is a y for text along x and an x for text along y; `rotation` is that of the text before.
    double baseline(double value, int rotation) const
    {
        const bool along = rotation % 180 == 0;
        const auto [x, y] = along ? point(0, value) : point(value, 0);
        const bool alongAfter = (rotation + 90 * quarters) % 180 == 0;
        return alongAfter ? y : x;
    }
    int rotation(int before) const { return (before + 90 * quarters) % 360; }
    void apply(Rule &rule) const
    {
        const Box b = box({rule.x1, rule.y1, rule.x2, rule.y2});
        rule.x1 = b.left;
        rule.y1 = b.top;
        rule.x2 = b.right;
        rule.y2 = b.bottom;
    }
    template <typename AnyWord>
    void apply(AnyWord &word) const
    {
        word.box = box(word.box);
        word.baseline = baseline(word.baseline, word.rotation);
        word.rotation = rotation(word.rotation);
    }
};

void apply(const Rotator &rotator, Paragraph &paragraph)
{
    paragraph.box = rotator.box(paragraph.box);
    paragraph.rotation = rotator.rotation(paragraph.rotation);
    for (Line &line : paragraph.lines) {
        line.box = rotator.box(line.box);
        line.baseline = rotator.baseline(line.baseline, line.rotation);
        line.rotation = rotator.rotation(line.rotation);
        for (Word &word : line.words) {
            rotator.apply(word);
        }
    }
}

void apply(const Rotator &rotator, Table &table)
{
    table.box = rotator.box(table.box);
    table.rotation = rotator.rotation(table.rotation);
    for (Cell &cell : table.cells) {
        cell.box = rotator.box(cell.box);
        for (Paragraph &paragraph : cell.paragraphs) {
            apply(rotator, paragraph);
        }
    }
}

void apply(const Rotator &rotator, Block &block)
{
    if (Paragraph *paragraph = block.paragraph()) {
        apply(rotator, *paragraph);
    } else if (Figure *figure = block.figure()) {
        figure->box = rotator.box(figure->box);
        for (Paragraph &label : figure->labels) {
            apply(rotator, label);
        }
    } else if (Table *table = block.table()) {
        apply(rotator, *table);
    }
}

} // namespace

std::pair<double, double> PageRotation::point(double x, double y) const
{
    switch (quarters) {
    case 1:
        return {height - y, x};
    case 2:
        return {width - x, height - y};
    case 3:
        return {y, width - x};
    default:
        return {x, y};
    }
}

Box PageRotation::box(const Box &b) const
{
    const auto [x1, y1] = point(b.left, b.top);
    const auto [x2, y2] = point(b.right, b.bottom);
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

PageRotation PageRotation::inverse() const
{
    const bool swaps = quarters % 2 == 1;
    return {(4 - quarters) % 4, swaps ? height : width, swaps ? width : height};
}

PageRotation rotationToPage(int rotation, double pageWidth, double pageHeight)
{
    return PageRotation{(4 - rotation / 90 % 4) % 4, pageWidth, pageHeight}.inverse();
}

Paragraph uprightParagraph(Paragraph paragraph, double pageWidth, double pageHeight)
{
    apply(Rotator{{(4 - paragraph.rotation / 90 % 4) % 4, pageWidth, pageHeight}}, paragraph);
    return paragraph;
}

Table uprightTable(Table table)
{
    apply(Rotator{{(4 - table.rotation / 90 % 4) % 4, 0, 0}}, table);
    return table;
}

int mainRotation(const RawPage &page)
{
    std::array<int, 4> letters{};
    for (const RawWord &word : page.words) {
        letters.at(static_cast<std::size_t>(word.rotation / 90) % 4) += letterCount(word.text);
    }
    const auto most = std::max_element(letters.begin(), letters.end());
    return static_cast<int>(most - letters.begin()) * 90;
}

RawPage rotatedUpright(RawPage page, int rotation)
{
    const Rotator rotator{{(360 - rotation) / 90 % 4, page.width, page.height}};
    if (rotator.quarters == 0) {
        return page;
    }
    for (RawWord &word : page.words) {
        rotator.apply(word);
    }
    for (Rule &rule : page.rules) {
        rotator.apply(rule);
    }
    for (Fill &fill : page.fills) {
        fill.box = rotator.box(fill.box);
    }
    for (RawPicture &picture : page.pictures) {
        picture.box = rotator.box(picture.box);
    }
    for (Ink &ink : page.ink) {
        ink.box = rotator.box(ink.box);
    }
    if (rotator.quarters % 2 == 1) {
        std::swap(page.width, page.height);
    }
    return page;
}

void rotateToPage(Page &page, int rotation)
{
    const Rotator rotator{{rotation / 90 % 4, page.width, page.height}};
    if (rotator.quarters == 0) {
        return;
    }
    page.content = rotator.box(page.content);
    if (page.background) {
        page.background = rotator.box(*page.background);
    }
    for (Section &section : page.sections) {
        for (Box &column : section.columns) {
            column = rotator.box(column);
        }
        for (Block &block : section.blocks) {
            apply(rotator, block);
        }
    }
    for (auto *edge : {&page.header, &page.footer}) {
        for (Paragraph &paragraph : *edge) {
            apply(rotator, paragraph);
        }
    }
    for (Rule &rule : page.rules) {
        rotator.apply(rule);
    }
    for (Fill &fill : page.fills) {
        fill.box = rotator.box(fill.box);
    }
    if (rotator.quarters % 2 == 1) {
        std::swap(page.width, page.height);
    }
}

void rotateToPage(Paragraph &paragraph, int rotation, double uprightWidth, double uprightHeight)
{
    apply(Rotator{{rotation / 90 % 4, uprightWidth, uprightHeight}}, paragraph);
}

} // namespace quorra::model
