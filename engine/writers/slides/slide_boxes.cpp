// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_boxes.h"

#include "document/page_walk.h"
#include "document/rotation.h"
#include "odf/placed_page.h"
#include "slide_fit.h"
#include "slide_text.h"
#include "slide_title.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorra::office {

namespace {

struct Thresholds
{
    double offCentre = 3;         ///< points; by which the middles of centred paragraphs differ
    std::size_t minJustified = 3; ///< lines; of a paragraph that shows whether text is justified
};
constexpr Thresholds thresholds;

Box boxOf(const SlideBox &box)
{
    Box all = box.paragraphs.front().box;
    for (const model::Paragraph &paragraph : box.paragraphs) {
        all = united(all, paragraph.box);
    }
    return all;
}

/// Returns how far to the right text can reach before words move up into the line above, in points from the left edge
/// of the page.
double wrapLimit(const model::Paragraph &paragraph)
{
    double limit = std::numeric_limits<double>::max();
    if (keepsLines(paragraph)) {
        return limit;
    }
    for (std::size_t i = 0; i + 1 < paragraph.lines.size(); ++i) {
        const model::Line &line = paragraph.lines[i];
        const model::Line &next = paragraph.lines[i + 1];
        if (!line.words.empty() && !next.words.empty() && line.words.back().separator != model::Separator::LineBreak) {
            limit = std::min(limit, line.words.back().box.right + next.words.front().box.width());
        }
    }
    return limit;
}

bool isAligned(const model::Paragraph &paragraph, const Box &frame)
{
    const auto middle = [](const Box &box) { return (box.left + box.right) / 2; };
    switch (paragraph.alignment) {
    case model::Alignment::Centre:
        return std::abs(middle(paragraph.box) - middle(frame)) <= thresholds.offCentre;
    case model::Alignment::Right:
        return paragraph.lines.size() < 2;
    case model::Alignment::Justify:
        return paragraph.lines.size() < 2 || frame.right - paragraph.box.right <= thresholds.offCentre;
    case model::Alignment::Left:
        break;
    }
    return true;
}

/// Whether the paragraph can follow those of the box in it.
bool belongsTo(const SlideBox &box, const model::Paragraph &paragraph)
{
    const model::Paragraph &last = box.paragraphs.back();
    const Box before = boxOf(box);
    const Box all = united(before, paragraph.box);
    const bool below = isCloseBelow(paragraph.box, slideLeading(paragraph), before, last.box.bottom);
    const auto fits = [&](const model::Paragraph &each) { return isAligned(each, all) && wrapLimit(each) > all.right; };
    return below && !last.rightToLeft && !paragraph.rightToLeft && fits(paragraph) &&
           std::all_of(box.paragraphs.begin(), box.paragraphs.end(), fits);
}

class BoxBuilder
{
public:
    explicit BoxBuilder(const model::Page &page) : m_page(page) {}

    void add(const model::Paragraph &paragraph, bool labels, bool mayJoin, std::size_t place = 0)
    {
        const model::Paragraph upright = model::uprightParagraph(paragraph, m_page.width, m_page.height);
        std::vector<model::Paragraph> pieces = paragraphPieces(upright, labels);
        const bool whole = pieces.size() == 1 && !labels;
        if (whole && mayJoin && m_open && m_boxes.back().rotation == paragraph.rotation &&
            belongsTo(m_boxes.back(), pieces.front())) {
            m_boxes.back().paragraphs.push_back(std::move(pieces.front()));
            return;
        }
        for (model::Paragraph &piece : pieces) {
            m_boxes.push_back({BoxKind::Text, paragraph.rotation, {std::move(piece)}, place});
        }
        m_open = whole && mayJoin;
    }

    /// The next paragraph begins a box.
    void close() { m_open = false; }

    std::vector<SlideBox> take() { return std::move(m_boxes); }

private:
    const model::Page &m_page;
    std::vector<SlideBox> m_boxes;
    bool m_open = false; ///< another paragraph may follow in the last box
};

/// The box with the most items of a list is what outlines show of a slide with a title.
void markOutline(std::vector<SlideBox> &boxes)
{
    const auto items = [](const SlideBox &box) {
        return std::count_if(box.paragraphs.begin(), box.paragraphs.end(), [](const model::Paragraph &paragraph) {
            return paragraph.listItem.has_value();
        });
    };
    const auto most = std::max_element(
        boxes.begin(), boxes.end(), [&](const SlideBox &a, const SlideBox &b) { return items(a) < items(b); });
    if (most != boxes.end() && most->kind == BoxKind::Text && most->rotation == 0 && items(*most) > 0) {
        most->kind = BoxKind::Outline;
    }
}

/// A single full line does not show that text is justified.
void alignRagged(SlideBox &box)
{
    const auto shows = [](const model::Paragraph &paragraph) {
        return paragraph.alignment == model::Alignment::Justify && paragraph.lines.size() >= thresholds.minJustified;
    };
    if (std::none_of(box.paragraphs.begin(), box.paragraphs.end(), shows)) {
        for (model::Paragraph &paragraph : box.paragraphs) {
            if (paragraph.alignment == model::Alignment::Justify) {
                paragraph.alignment = paragraph.rightToLeft ? model::Alignment::Right : model::Alignment::Left;
            }
        }
    }
}

} // namespace

std::vector<SlideBox> slideBoxes(const model::Page &page, const model::FileFacts &facts)
{
    const std::vector<const model::Paragraph *> title = slideTitle(page, facts);
    const auto isTitle = [&](const model::Paragraph &paragraph) {
        return std::find(title.begin(), title.end(), &paragraph) != title.end();
    };
    BoxBuilder builder(page);
    std::size_t place = 0;
    model::forEachBlock(page, [&](const model::Block &block) {
        const model::Paragraph *paragraph = block.paragraph();
        ++place;
        if (paragraph && !isTitle(*paragraph)) {
            builder.add(*paragraph, false, true, place);
        } else if (!block.figure()) {
            builder.close();
        }
    });
    for (const auto *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            if (!isTitle(paragraph)) {
                builder.add(paragraph, false, false, place);
            }
        }
    }
    std::vector<SlideBox> boxes = builder.take();
    std::for_each(boxes.begin(), boxes.end(), alignRagged);
    if (!title.empty()) {
        markOutline(boxes);
        boxes.insert(boxes.begin(), {BoxKind::Title, 0, {titleParagraph(title, page)}});
    }
    return boxes;
}

std::vector<SlideBox> labelBoxes(const model::Page &page, const model::Figure &figure)
{
    BoxBuilder builder(page);
    for (const model::Paragraph &label : figure.labels) {
        builder.add(label, true, false);
    }
    return builder.take();
}

} // namespace quorra::office
