// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/rotation.h"

#include "base/characters.h"

#include <array>
#include <utility>

namespace quorra::model {

namespace {

// What a turn does to marks and text.
struct Turner : Turn
{
    // The baseline is a y for text along x and an x for text along y; `rotation` is the text's before the turn.
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

void apply(const Turner &turn, Paragraph &paragraph)
{
    paragraph.box = turn.box(paragraph.box);
    paragraph.rotation = turn.rotation(paragraph.rotation);
    for (Line &line : paragraph.lines) {
        line.box = turn.box(line.box);
        line.baseline = turn.baseline(line.baseline, line.rotation);
        line.rotation = turn.rotation(line.rotation);
        for (Word &word : line.words) {
            turn.apply(word);
        }
    }
}

void apply(const Turner &turn, Table &table)
{
    table.box = turn.box(table.box);
    table.rotation = turn.rotation(table.rotation);
    for (Cell &cell : table.cells) {
        cell.box = turn.box(cell.box);
        for (Paragraph &paragraph : cell.paragraphs) {
            apply(turn, paragraph);
        }
    }
}

void apply(const Turner &turn, Block &block)
{
    if (Paragraph *paragraph = block.paragraph()) {
        apply(turn, *paragraph);
    } else if (Figure *figure = block.figure()) {
        figure->box = turn.box(figure->box);
        for (Paragraph &label : figure->labels) {
            apply(turn, label);
        }
    } else if (Table *table = block.table()) {
        apply(turn, *table);
    }
}

} // namespace

std::pair<double, double> Turn::point(double x, double y) const
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

Box Turn::box(const Box &b) const
{
    const auto [x1, y1] = point(b.left, b.top);
    const auto [x2, y2] = point(b.right, b.bottom);
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

Turn Turn::back() const
{
    const bool swaps = quarters % 2 == 1;
    return {(4 - quarters) % 4, swaps ? height : width, swaps ? width : height};
}

Turn turnToPage(int rotation, double pageWidth, double pageHeight)
{
    return Turn{(4 - rotation / 90 % 4) % 4, pageWidth, pageHeight}.back();
}

Paragraph uprightParagraph(Paragraph paragraph, double pageWidth, double pageHeight)
{
    apply(Turner{{(4 - paragraph.rotation / 90 % 4) % 4, pageWidth, pageHeight}}, paragraph);
    return paragraph;
}

Table uprightTable(Table table)
{
    apply(Turner{{(4 - table.rotation / 90 % 4) % 4, 0, 0}}, table);
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

RawPage turnedUpright(RawPage page, int rotation)
{
    const Turner turn{{(360 - rotation) / 90 % 4, page.width, page.height}};
    if (turn.quarters == 0) {
        return page;
    }
    for (RawWord &word : page.words) {
        turn.apply(word);
    }
    for (Rule &rule : page.rules) {
        turn.apply(rule);
    }
    for (Fill &fill : page.fills) {
        fill.box = turn.box(fill.box);
    }
    for (RawPicture &picture : page.pictures) {
        picture.box = turn.box(picture.box);
    }
    for (Ink &ink : page.ink) {
        ink.box = turn.box(ink.box);
    }
    if (turn.quarters % 2 == 1) {
        std::swap(page.width, page.height);
    }
    return page;
}

void turnBack(Page &page, int rotation)
{
    const Turner turn{{rotation / 90 % 4, page.width, page.height}};
    if (turn.quarters == 0) {
        return;
    }
    page.content = turn.box(page.content);
    for (Section &section : page.sections) {
        for (Box &column : section.columns) {
            column = turn.box(column);
        }
        for (Block &block : section.blocks) {
            apply(turn, block);
        }
    }
    for (auto *edge : {&page.header, &page.footer}) {
        for (Paragraph &paragraph : *edge) {
            apply(turn, paragraph);
        }
    }
    for (Rule &rule : page.rules) {
        turn.apply(rule);
    }
    for (Fill &fill : page.fills) {
        fill.box = turn.box(fill.box);
    }
    if (turn.quarters % 2 == 1) {
        std::swap(page.width, page.height);
    }
}

void turnBack(Paragraph &paragraph, int rotation, double uprightWidth, double uprightHeight)
{
    apply(Turner{{rotation / 90 % 4, uprightWidth, uprightHeight}}, paragraph);
}

} // namespace quorra::model
