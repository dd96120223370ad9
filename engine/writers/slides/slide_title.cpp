// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_title.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "document/text_key.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace quorra::office {

namespace {

struct Thresholds
{
    double sameSize = 0.95;         ///< share of the largest size; of text that is as large
    double minRatio = 1.15;         ///< of the title's size to that of most other text
    double maxTop = 0.6;            ///< share of the page's height; titles of first pages are near the middle
    double maxGap = 0.8;            ///< em; between the parts of a title
    qsizetype maxLength = 250;      ///< characters; longer text is no title
    double minOutlineShare = 0.5;   ///< share of the title; that an outline entry which is cut off still has
    qsizetype minOutlineLength = 8; ///< characters; of an entry that is cut off
    double offMiddle = 0.01;        ///< share of the page's width; by which the middles of centred lines differ
    double maxMargin = 0.1;         ///< share of the page's width; beside a title that extends to the page's margins
    double minMargin = 0.02;        ///< likewise
    double minCentred = 0.15; ///< likewise; beside a single line that is centred: wider ones are near the middle anyway
    double spare = 0.01;      ///< likewise; beside a title, for other fonts
};
constexpr Thresholds thresholds;

using Candidates = std::vector<const model::Paragraph *>;

bool isUpright(const model::Paragraph &paragraph)
{
    return paragraph.rotation == 0 && !paragraph.lines.empty();
}

/// Returns the paragraphs that a title may consist of, from top to bottom.
Candidates candidatesOn(const model::Page &page)
{
    Candidates candidates;
    const auto add = [&](const model::Paragraph &paragraph) {
        if (isUpright(paragraph) && !paragraph.preformatted && !model::textKey(model::plainText(paragraph)).isEmpty()) {
            candidates.push_back(&paragraph);
        }
    };
    model::forEachBlock(page, [&](const model::Block &block) {
        if (const model::Paragraph *paragraph = block.paragraph()) {
            add(*paragraph);
        }
    });
    for (const auto *edge : {&page.header, &page.footer}) {
        std::for_each(edge->begin(), edge->end(), add);
    }
    std::stable_sort(
        candidates.begin(), candidates.end(), [](const auto *a, const auto *b) { return a->box.top < b->box.top; });
    return candidates;
}

bool isAsLarge(const model::Paragraph &paragraph, double size)
{
    return model::largestSize(paragraph) >= thresholds.sameSize * size;
}

/// Returns the paragraph with those that continue it below: as large and close. Ends with the part that makes the text
/// longer than a title can be.
Candidates withContinuation(const Candidates &candidates, Candidates::const_iterator first)
{
    Candidates parts = {*first};
    const double size = model::largestSize(**first);
    qsizetype length = model::textKey(model::plainText(**first)).size();
    for (auto at = std::next(first); at != candidates.end() && length <= thresholds.maxLength; ++at) {
        const model::Paragraph *next = *at;
        const model::Paragraph &last = *parts.back();
        const double gap = next->box.top - last.box.bottom;
        if (gap > thresholds.maxGap * size) {
            break; // so are all others, which begin still lower
        }
        const bool below = next->box.top >= last.box.bottom - size / 2;
        const bool sameColumn = next->box.left < last.box.right && next->box.right > last.box.left;
        const bool sameLook =
            isAsLarge(*next, size) && isAsLarge(last, model::largestSize(*next)) &&
            next->lines.front().words.front().style->colour == last.lines.back().words.back().style->colour;
        if (below && sameColumn && sameLook && !next->listItem) {
            parts.push_back(next);
            length += model::textKey(model::plainText(*next)).size();
        }
    }
    return parts;
}

QString textOf(const Candidates &parts)
{
    QString text;
    for (const model::Paragraph *part : parts) {
        text += model::textKey(part->listItem ? part->listItem->mark : QString());
        text += model::textKey(model::plainText(*part));
    }
    return text;
}

/// Whether an outline entry for the page has this text; long entries may be cut off.
bool isInOutline(const QString &text, const model::Page &page, const model::FileFacts &facts)
{
    return std::any_of(facts.outline.begin(), facts.outline.end(), [&](const model::OutlineEntry &entry) {
        if (entry.page != page.number) {
            return false;
        }
        const QString title = model::textKey(entry.title);
        const bool cutOff =
            title.size() >= thresholds.minOutlineLength && text.startsWith(title) &&
            static_cast<double>(title.size()) >= thresholds.minOutlineShare * static_cast<double>(text.size());
        return cutOff || (!title.isEmpty() && title == text);
    });
}

/// The size of most text on the page other than these parts; 0 if there is none.
double sizeOfOthers(const model::Page &page, const Candidates &parts)
{
    std::map<double, qsizetype> counts;
    model::forEachParagraph(page, [&](const model::Paragraph &paragraph) {
        if (std::find(parts.begin(), parts.end(), &paragraph) == parts.end()) {
            counts[model::largestSize(paragraph)] += model::plainText(paragraph).size();
        }
    });
    const auto most = std::max_element(
        counts.begin(), counts.end(), [](const auto &a, const auto &b) { return a.second < b.second; });
    return most == counts.end() ? 0 : most->first;
}

} // namespace

std::vector<const model::Paragraph *> slideTitle(const model::Page &page, const model::FileFacts &facts)
{
    const Candidates candidates = candidatesOn(page);
    double largest = 0;
    for (const model::Paragraph *candidate : candidates) {
        largest = std::max(largest, model::largestSize(*candidate));
    }
    const auto isLarge = [&](const model::Paragraph *candidate) { return isAsLarge(*candidate, largest); };
    const bool hasEntries = std::any_of(
        facts.outline.begin(), facts.outline.end(), [&](const auto &entry) { return entry.page == page.number; });
    for (auto candidate = candidates.begin(); hasEntries && candidate != candidates.end(); ++candidate) {
        if (!isLarge(*candidate) && candidate != candidates.begin()) {
            continue;
        }
        for (Candidates parts = withContinuation(candidates, candidate); !parts.empty(); parts.pop_back()) {
            if (isInOutline(textOf(parts), page, facts)) {
                return parts;
            }
        }
    }
    const auto first = std::find_if(candidates.begin(), candidates.end(), isLarge);
    if (first == candidates.end() || (*first)->listItem || (*first)->box.top > thresholds.maxTop * page.height) {
        return {};
    }
    Candidates title = withContinuation(candidates, first);
    const double others = sizeOfOthers(page, title);
    const bool stands = others == 0 ? (*first)->role == model::Role::Heading : largest >= thresholds.minRatio * others;
    return stands && textOf(title).size() <= thresholds.maxLength ? title : Candidates{};
}

namespace {

double middleOf(const Box &box)
{
    return (box.left + box.right) / 2;
}

model::Alignment titleAlignment(const model::Paragraph &title, const model::Page &page)
{
    const double off = thresholds.offMiddle * page.width;
    const auto agree = [&](const auto &place, double with) {
        return std::all_of(title.lines.begin(), title.lines.end(), [&](const model::Line &line) {
            return std::abs(place(line.box) - with) <= off;
        });
    };
    const auto left = [](const Box &box) { return box.left; };
    const auto right = [](const Box &box) { return box.right; };
    const bool single = title.lines.size() < 2;
    if (!single && agree(left, title.box.left)) {
        return title.rightToLeft ? model::Alignment::Right : model::Alignment::Left;
    }
    const bool atMargin = title.box.left < thresholds.minCentred * page.width;
    if (agree(middleOf, single ? page.width / 2 : middleOf(title.lines.front().box)) && !(single && atMargin)) {
        return model::Alignment::Centre;
    }
    const bool atRight = title.rightToLeft || (!single && agree(right, title.box.right));
    return atRight ? model::Alignment::Right : model::Alignment::Left;
}

/// Whether any text, table or figure is in this region, apart from the title.
bool isTaken(const Box &region, const model::Paragraph &title, const model::Page &page)
{
    bool taken = false;
    const auto check = [&](const Box &box) {
        const bool inTitle = box.left >= title.box.left && box.right <= title.box.right && box.top >= title.box.top &&
                             box.bottom <= title.box.bottom;
        taken |= !inTitle && box.left < region.right && box.right > region.left && box.top < region.bottom &&
                 box.bottom > region.top;
    };
    model::forEachBlock(page, [&](const model::Block &block) { check(block.box()); });
    for (const auto *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            check(paragraph.box);
        }
    }
    return taken;
}

} // namespace

model::Paragraph titleParagraph(const std::vector<const model::Paragraph *> &parts, const model::Page &page)
{
    model::Paragraph title = *parts.front();
    for (auto part = parts.begin() + 1; part != parts.end(); ++part) {
        // Text wraps after a hyphen, without a space.
        model::Word &last = title.lines.back().words.back();
        last.separator = last.text.endsWith(u'-') ? model::Separator::None : model::Separator::Space;
        title.lines.insert(title.lines.end(), (*part)->lines.begin(), (*part)->lines.end());
        title.box = united(title.box, (*part)->box);
    }
    if (title.lineDistance <= 0 && title.lines.size() > 1) {
        title.lineDistance = title.lines[1].baseline - title.lines[0].baseline;
    }
    title.alignment = titleAlignment(title, page);
    title.firstLineIndent = 0;
    title.listItem.reset(); // the number of a title is part of its text
    title.tabStops.clear();
    return title;
}

TitleFrame titleFrame(model::Paragraph &title, const model::Page &page)
{
    Box frame = title.box;
    const double spare = thresholds.spare * page.width;
    frame.left -= title.alignment == model::Alignment::Left ? 0 : spare;
    frame.right += title.alignment == model::Alignment::Right ? 0 : spare;
    if (title.lines.size() < 2) {
        const Box narrow = frame;
        const double margin = std::clamp(
            std::min(frame.left, page.width - frame.right), thresholds.minMargin * page.width,
            thresholds.maxMargin * page.width);
        const double half = std::min(middleOf(frame) - margin, page.width - margin - middleOf(frame));
        switch (title.alignment) {
        case model::Alignment::Centre:
            frame.left = std::min(frame.left, middleOf(narrow) - half);
            frame.right = std::max(frame.right, middleOf(narrow) + half);
            break;
        case model::Alignment::Right:
            frame.left = std::min(frame.left, margin);
            break;
        default:
            frame.right = std::max(frame.right, page.width - margin);
            break;
        }
        const bool taken = isTaken(frame, title, page);
        return {taken ? narrow : frame, !taken};
    }
    for (std::size_t i = 0; i + 1 < title.lines.size(); ++i) {
        model::Line &line = title.lines[i];
        const model::Line &next = title.lines[i + 1];
        const double together = line.box.width() + next.words.front().box.width();
        if (line.words.back().separator == model::Separator::Space && together < frame.width()) {
            line.words.back().separator = model::Separator::LineBreak;
        }
    }
    return {frame};
}

} // namespace quorra::office
