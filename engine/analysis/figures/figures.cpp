// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/figures.h"

#include "columns/column_gaps.h"
#include "figures/drawings.h"
#include "paragraphs/dehyphenation.h"
#include "paragraphs/paragraphs.h"
#include "text_lines/superscripts.h"

#include <algorithm>

namespace quorra::model {

namespace {

constexpr double smallestImage = 8;     // points
constexpr double backgroundShare = 0.6; // of the page

bool touch(const Box &a, const Box &b)
{
    constexpr double seam = 1; // points
    return a.left - seam <= b.right && b.left - seam <= a.right && a.top - seam <= b.bottom && b.top - seam <= a.bottom;
}

// Many programs cut an image into strips or tiles; they are one picture again here.
std::vector<Box> wholeImages(const std::vector<RawPicture> &pieces)
{
    std::vector<Box> images;
    for (const RawPicture &piece : pieces) {
        Box box = piece.box;
        for (std::size_t i = images.size(); i-- > 0;) {
            if (touch(images[i], box)) {
                box = united(box, images[i]);
                images.erase(images.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        images.push_back(box);
    }
    images.erase(
        std::remove_if(
            images.begin(), images.end(),
            [](const Box &b) { return b.width() < smallestImage || b.height() < smallestImage; }),
        images.end());
    return images;
}

WordRefs wordsIn(const Box &box, const WordRefs &words)
{
    WordRefs inside;
    std::copy_if(words.begin(), words.end(), std::back_inserter(inside), [&box](const RawWord *word) {
        const Box body = bodyOf(*word);
        return box.contains(body.centreX(), body.centreY());
    });
    return inside;
}

bool isInside(const Box &inner, const Box &outer)
{
    return outer.contains(inner.centreX(), inner.centreY()) && inner.width() <= 1.05 * outer.width();
}

} // namespace

PagePictures findPictures(const RawPage &raw, const std::vector<Box> &tables, const WordRefs &words)
{
    PagePictures pictures;
    WordRefs loose; // words of no table
    std::copy_if(words.begin(), words.end(), std::back_inserter(loose), [&tables](const RawWord *word) {
        return std::none_of(tables.begin(), tables.end(), [word](const Box &t) {
            return t.contains(word->box.centreX(), word->box.centreY());
        });
    });
    std::vector<Box> drawings = findDrawings(raw, tables);
    for (const Box &drawing : drawings) {
        WordRefs labels = wordsIn(drawing, loose);
        constexpr std::size_t fewWords = 40;
        if (labels.size() > fewWords && isRunningText(labels)) {
            continue; // ornaments around text
        }
        pictures.labels.push_back({pictures.placed.size(), std::move(labels)});
        pictures.placed.push_back({drawing, PictureKind::Drawing});
    }
    const std::size_t drawn = pictures.placed.size();
    for (const Box &image : wholeImages(raw.pictures)) {
        const bool inDrawing = std::any_of(
            pictures.placed.begin(), pictures.placed.begin() + static_cast<std::ptrdiff_t>(drawn),
            [&image](const Picture &p) { return isInside(image, p.box); });
        const bool inTable =
            std::any_of(tables.begin(), tables.end(), [&image](const Box &t) { return isInside(image, t); });
        if (inDrawing) {
            continue;
        }
        const bool behind = image.width() * image.height() > backgroundShare * raw.width * raw.height ||
                            (!inTable && wordsIn(image, loose).size() > 60);
        (behind ? pictures.backgrounds : pictures.placed).push_back({image, PictureKind::Image});
    }
    return pictures;
}

std::vector<Paragraph> labelParagraphs(const DrawingLabels &labels, StyleTable &styles)
{
    Paragraph all;
    for (const TextLine &row : textLinesOf(labels.words)) {
        Line line = lineOf(row, styles);
        markSuperscripts(line);
        if (!all.lines.empty()) {
            Line &last = all.lines.back();
            last.words.back().separator = lineEnd(last, line.words.front().text, true);
        }
        all.box = united(all.box, line.box);
        all.lines.push_back(std::move(line));
    }
    all.role = Role::Caption;
    all.preformatted = isPreformatted(all);
    return all.lines.empty() ? std::vector<Paragraph>() : std::vector<Paragraph>{std::move(all)};
}

} // namespace quorra::model
