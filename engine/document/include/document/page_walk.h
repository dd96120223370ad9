// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Calls visit(block) for the blocks of the page in reading order, header and footer left out. The page may be const or
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

/// Calls visit(paragraph) for the paragraphs of the page, those in tables, the labels of figures, and last the
/// header and the footer included.
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
    for (auto *edge : {&page.header, &page.footer}) {
        for (auto &paragraph : *edge) {
            visit(paragraph);
        }
    }
}

} // namespace quorra::model
