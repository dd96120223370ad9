// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/figures.h"

#include "columns/column_gaps.h"
#include "document/page_walk.h"
#include "figures/drawings.h"
#include "paragraphs/dehyphenation.h"
#include "paragraphs/paragraphs.h"
#include "text_lines/superscripts.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

namespace quorra::model {

namespace {

using figures::thresholds;

bool touch(const Box &a, const Box &b)
{
    const double seam = thresholds.maxSeam;
    return a.left - seam <= b.right && b.left - seam <= a.right && a.top - seam <= b.bottom && b.top - seam <= a.bottom;
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

// The words of the drawing, which grows where they reach a little over its edge. What is on one line without a gap
// belongs to the drawing as a whole or not at all.
WordRefs labelsOf(Box &drawing, const WordRefs &words)
{
    WordRefs labels;
    WordRefs near; // upright words at the height of the drawing
    for (const RawWord *word : words) {
        const Box body = bodyOf(*word);
        if (word->rotation != 0 && drawing.contains(body.centreX(), body.centreY())) {
            labels.push_back(word);
        } else if (word->rotation == 0 && body.centreY() > drawing.top && body.centreY() < drawing.bottom) {
            near.push_back(word);
        }
    }
    Box grown = drawing;
    for (const TextLine &line : textLinesOf(std::move(near))) {
        for (const Segment &segment : segmentsOf(line, thresholds.maxLabelGap)) {
            const double shown = intersected(segment.box, drawing).width();
            if (shown >= thresholds.minLabelInside * segment.box.width()) {
                labels.insert(labels.end(), segment.words.begin(), segment.words.end());
                grown.left = std::min(grown.left, segment.box.left);
                grown.right = std::max(grown.right, segment.box.right);
            }
        }
    }
    drawing = grown;
    return labels;
}

bool isOrnament(const WordRefs &words)
{
    return words.size() > thresholds.maxLabels && areProseLines(words);
}

// Unites drawings that overlap with the labels that belong to them: a chart whose parts do not touch one another.
void uniteOverlapping(std::vector<Box> &drawings, const WordRefs &words)
{
    std::vector<Box> separate;
    std::vector<Box> ornaments;
    for (Box drawing : drawings) {
        const Box own = drawing;
        if (isOrnament(labelsOf(drawing, words))) {
            ornaments.push_back(own);
            continue;
        }
        for (std::size_t i = 0; i < separate.size();) {
            const double shared = intersected(drawing, separate[i]).area();
            if (shared > thresholds.maxShared * std::min(drawing.area(), separate[i].area())) {
                drawing = united(drawing, separate[i]);
                separate.erase(separate.begin() + static_cast<std::ptrdiff_t>(i));
                i = 0;
            } else {
                ++i;
            }
        }
        separate.push_back(drawing);
    }
    drawings = std::move(separate);
    drawings.insert(drawings.end(), ornaments.begin(), ornaments.end());
}

bool isInside(const Box &inner, const Box &outer)
{
    return outer.contains(inner.centreX(), inner.centreY()) && inner.width() <= thresholds.maxExcess * outer.width();
}

// A drawing's labels as text, one paragraph for all.
Paragraph labelParagraph(const WordRefs &labels, StyleTable &styles)
{
    Paragraph all;
    for (const TextLine &text : textLinesOf(labels)) {
        Line line = lineOf(text, styles);
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
    return all;
}

bool shows(const Box &picture, const Box &label)
{
    return picture.contains(label.centreX(), label.centreY()) &&
           intersected(picture, label).width() > thresholds.minShownLabel * label.width();
}

// Where words of the page are on a drawing that are none of its labels.
std::vector<Box> textOn(const Page &page, const Figure &figure)
{
    std::vector<Box> text;
    if (figure.kind != FigureKind::Drawing) {
        return text; // shown without any words, or with all
    }
    std::unordered_set<const Paragraph *> labels;
    for (const Paragraph &label : figure.labels) {
        labels.insert(&label);
    }
    forEachParagraph(page, [&](const Paragraph &paragraph) {
        if (labels.count(&paragraph) > 0) {
            return;
        }
        for (const Line &line : paragraph.lines) {
            for (const Word &word : line.words) {
                const Box common = intersected(word.box, figure.box);
                if (common.width() > 0 && common.height() > 0) {
                    text.push_back(word.box);
                }
            }
        }
    });
    return text;
}

bool isBehindText(const Page &page, const Figure &figure)
{
    bool behind = false;
    forEachBlock(page, [&](const Block &block) {
        const Box box = block.box();
        // Short texts on a drawing belong to it, even those that reach over its edge.
        const bool belongs = figure.kind == FigureKind::Drawing && block.paragraph() &&
                             block.paragraph()->lines.size() <= thresholds.maxLabelLines;
        behind = behind ||
                 (!block.figure() && !belongs && !box.isEmpty() && figure.box.contains(box.centreX(), box.centreY()) &&
                  intersected(figure.box, box).width() > thresholds.minTextOnFigure * box.width());
    });
    return behind;
}

// A formula with the width of the nearest line of text that reaches over it on both sides; itself where there is none.
Box rowOf(const Box &formula, const std::vector<TextLine> &lines)
{
    Box row = formula;
    double nearest = std::numeric_limits<double>::max();
    for (const TextLine &line : lines) {
        const double distance = std::max(formula.top - line.box.bottom, line.box.top - formula.bottom);
        for (const Segment &segment : segmentsOf(line, thresholds.maxLabelGap)) {
            if (distance > 0 && distance < nearest && segment.box.left <= formula.left &&
                segment.box.right >= formula.right) {
                nearest = distance;
                row = {segment.box.left, formula.top, segment.box.right, formula.bottom};
            }
        }
    }
    return row;
}

// Formulas are drawings of their own unless they are in a table or a drawing.
void addFormulas(std::vector<Box> &drawings, const std::vector<Box> &formulas, const std::vector<Box> &tables)
{
    const std::vector<Box> others = drawings;
    const auto isInAny = [](const Box &formula, const std::vector<Box> &boxes) {
        return std::any_of(boxes.begin(), boxes.end(), [&formula](const Box &box) {
            return box.contains(formula.centreX(), formula.centreY());
        });
    };
    std::copy_if(formulas.begin(), formulas.end(), std::back_inserter(drawings), [&](const Box &formula) {
        return !isInAny(formula, tables) && !isInAny(formula, others);
    });
}

} // namespace

std::vector<RawPicture> wholeImages(const std::vector<RawPicture> &pieces)
{
    std::vector<RawPicture> images;
    for (const RawPicture &piece : pieces) {
        RawPicture image = piece;
        for (std::size_t i = images.size(); i-- > 0;) {
            if (touch(images[i].box, image.box)) {
                image = {united(image.box, images[i].box), {}};
                images.erase(images.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        images.push_back(image);
    }
    images.erase(
        std::remove_if(
            images.begin(), images.end(),
            [](const RawPicture &image) {
                return image.box.width() < thresholds.minImageSide || image.box.height() < thresholds.minImageSide;
            }),
        images.end());
    return images;
}

PageFigures
findFigures(const RawPage &raw, const std::vector<Box> &tables, const KnownFigures &known, const WordRefs &words)
{
    PageFigures figures;
    WordRefs loose; // words of no table
    std::copy_if(words.begin(), words.end(), std::back_inserter(loose), [&tables](const RawWord *word) {
        return std::none_of(tables.begin(), tables.end(), [word](const Box &t) {
            return t.contains(word->box.centreX(), word->box.centreY());
        });
    });
    std::vector<Box> drawings = findDrawings(raw, tables, known.networks);
    uniteOverlapping(drawings, loose);
    const std::size_t firstFormula = drawings.size();
    addFormulas(drawings, known.formulas, tables);
    const std::vector<TextLine> lines = drawings.size() > firstFormula ? textLinesOf(loose) : std::vector<TextLine>();
    for (Box &drawing : drawings) {
        WordRefs labels = labelsOf(drawing, loose);
        if (isOrnament(labels)) {
            continue;
        }
        const bool formula = static_cast<std::size_t>(&drawing - drawings.data()) >= firstFormula;
        figures.placed.push_back(
            {drawing, FigureKind::Drawing, std::move(labels), {}, formula ? rowOf(drawing, lines) : Box{}});
    }
    const std::size_t drawn = figures.placed.size();
    std::vector<RawPicture> pictures = raw.pictures;
    pictures.erase(
        std::remove_if(pictures.begin(), pictures.end(), [](const RawPicture &picture) { return picture.scan; }),
        pictures.end());
    for (const RawPicture &picture : wholeImages(pictures)) {
        const Box &image = picture.box;
        const bool inDrawing = std::any_of(
            figures.placed.begin(), figures.placed.begin() + static_cast<std::ptrdiff_t>(drawn),
            [&image](const FoundFigure &p) { return isInside(image, p.box); });
        const bool inTable =
            std::any_of(tables.begin(), tables.end(), [&image](const Box &t) { return isInside(image, t); });
        if (inDrawing) {
            continue;
        }
        const bool behind = image.area() > thresholds.maxImageArea * raw.width * raw.height ||
                            (!inTable && wordsIn(image, loose).size() > thresholds.maxWordsOnImage);
        (behind ? figures.backgrounds : figures.placed).push_back({image, FigureKind::Image, {}, picture.stream});
    }
    return figures;
}

std::vector<Block> figureBlocks(const FoundFigure &found, StyleTable &styles)
{
    Figure figure;
    figure.box = found.box;
    figure.kind = found.kind;
    figure.stream = found.stream;
    Paragraph labels = labelParagraph(found.words, styles);
    if (labels.lines.empty()) {
        return {{std::move(figure), 0}};
    }
    if (shows(found.box, labels.box)) {
        figure.labels.push_back(std::move(labels));
        return {{std::move(figure), 0}};
    }
    return {{std::move(figure), 0}, {std::move(labels), 0}};
}

void findFiguresBehindText(Page &page)
{
    forEachBlock(page, [&page](Block &block) {
        if (Figure *figure = block.figure()) {
            figure->behindText = isBehindText(page, *figure);
        }
    });
}

void registerFigures(Page &page, Document &document)
{
    forEachBlock(page, [&](Block &block) {
        if (Figure *figure = block.figure()) {
            figure->id = FigureId{document.figures.size()};
            document.figures.push_back({page.number, figure->box, textOn(page, *figure), figure->stream});
        }
    });
}

} // namespace quorra::model
