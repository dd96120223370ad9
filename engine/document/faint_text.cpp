// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/faint_text.h"

#include "base/luma.h"
#include "document/page_walk.h"
#include "document/text.h"

#include <algorithm>

namespace quorra::model {

namespace {

constexpr double minFaint = 0.85; // share of white; lighter text cannot be read on white paper

bool liesOnFigureBehind(const Page &page, const Paragraph &paragraph)
{
    bool found = false;
    forEachBlock(page, [&](const Block &block) {
        const Figure *figure = block.figure();
        found = found || (figure && figure->behindText &&
                          figure->box.contains(paragraph.box.centreX(), paragraph.box.centreY()));
    });
    return found;
}

void darken(Paragraph &paragraph, StyleTable &styles)
{
    for (Line &line : paragraph.lines) {
        for (Word &word : line.words) {
            if (isFaint(word.style->colour)) {
                Style style = *word.style;
                style.colour = black;
                word.style = styles.add(style);
            }
        }
    }
}

} // namespace

bool isFaint(Colour colour)
{
    return lumaOf(colour) > minFaint * 0xff;
}

bool losesBackground(const Page &page, const Paragraph &paragraph)
{
    const bool faint = std::any_of(paragraph.lines.begin(), paragraph.lines.end(), [](const Line &line) {
        return std::any_of(
            line.words.begin(), line.words.end(), [](const Word &word) { return isFaint(word.style->colour); });
    });
    if (!faint) {
        return false;
    }
    const Box &text = paragraph.box;
    bool found = page.background || std::any_of(page.fills.begin(), page.fills.end(), [&text](const Fill &fill) {
                     return !isFaint(fill.colour) && !intersected(fill.box, text).isEmpty();
                 });
    forEachBlock(page, [&](const Block &block) {
        found = found || (block.figure() && !intersected(block.figure()->box, text).isEmpty());
    });
    return found;
}

void darkenFaintText(Document &document, bool figuresRemain)
{
    for (Page &page : document.pages) {
        const auto check = [&](Paragraph &paragraph) {
            const bool shaded = paragraph.shading && !isFaint(*paragraph.shading);
            if (!shaded && losesBackground(page, paragraph) &&
                !(figuresRemain && liesOnFigureBehind(page, paragraph))) {
                darken(paragraph, document.styles);
            }
        };
        forEachBlock(page, [&](Block &block) {
            if (Paragraph *paragraph = block.paragraph()) {
                check(*paragraph);
            } else if (Table *table = block.table()) {
                for (Cell &cell : table->cells) {
                    for (Paragraph &paragraph : cell.paragraphs) {
                        if (!cell.background || isFaint(*cell.background)) {
                            check(paragraph);
                        }
                    }
                }
            }
        });
        for (auto *edge : {&page.header, &page.footer}) {
            for (Paragraph &paragraph : *edge) {
                check(paragraph);
            }
        }
    }
}

} // namespace quorra::model
