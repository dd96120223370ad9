// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::office {

/// Calls visit(block) for the blocks of the page in reading order, running heads left out. The page may be const or
/// not; so are the blocks.
template <typename PageType, typename Visitor>
void forEachBlock(PageType &page, const Visitor &visit)
{
    for (auto &section : page.sections) {
        for (auto &block : section.blocks) {
            visit(block);
        }
    }
}

/// Calls visit(paragraph) for the paragraphs of the page, those in tables, the labels of figures and the running heads
/// (last) included.
template <typename PageType, typename Visitor>
void forEachParagraph(PageType &page, const Visitor &visit)
{
    const auto visitBlock = [&](auto &block) {
        if (auto *paragraph = block.paragraph()) {
            visit(*paragraph);
        } else if (auto *table = block.table()) {
            for (auto &cell : table->cells) {
                for (auto &inside : cell.paragraphs) {
                    visit(inside);
                }
            }
        } else if (auto *figure = block.figure()) {
            for (auto &label : figure->labels) {
                visit(label);
            }
        }
    };
    forEachBlock(page, visitBlock);
    for (auto &block : page.runningHeads) {
        visitBlock(block);
    }
}

} // namespace quorra::office
