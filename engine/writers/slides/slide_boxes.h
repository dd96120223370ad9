// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::office {

/// What a text box is on its slide.
enum class BoxKind { Text, Title, Outline };

/// Paragraphs below one another that share a text box, in upright coordinates.
struct SlideBox
{
    BoxKind kind = BoxKind::Text;
    int rotation = 0; ///< degrees clockwise by which the box is rotated on the slide
    std::vector<model::Paragraph> paragraphs;
    std::size_t place = 0; ///< the index of the block of the page after which it is read
};

/// Returns the text boxes of the page: first the title, if there is one, then the text in reading order, and the header
/// and footer. Paragraphs close below one another share a box if their lines break in it as on the page. Labels of
/// figures and the text of tables are not included.
std::vector<SlideBox> slideBoxes(const model::Page &page, const model::FileFacts &facts);

/// Returns the labels of a figure: each group of words is a box.
std::vector<SlideBox> labelBoxes(const model::Page &page, const model::Figure &figure);

} // namespace quorra::office
