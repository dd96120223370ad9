// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Calls visit(block) for the blocks of the page in reading order, without header and footer. The blocks are const if
/// the page is.
template <typename PageType, typename Visitor>
void forEachBlock(PageType &page, const Visitor &visit)
{
    for (auto &section : page.sections) {
        for (auto &block : section.blocks) {
            visit(block);
        }
    }
}

/// Calls visit(paragraph) for all paragraphs of the page, including those in tables and labels of figures. Header and
/// footer come last.
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
