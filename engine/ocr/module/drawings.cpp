// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/drawings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace quorra::ocr {

namespace {

constexpr struct
{
    double leastHorizontal = 0.4; ///< inches: strokes of letters and dashes are shorter
    double leastVertical = 0.3;   ///< inches: likewise, in type of less than 30 points
    double leastPiece = 0.15;     ///< inches, of a piece between two gaps
    double mostThickness = 0.06;  ///< inches: a thicker line is a bar
    double leastSlimness = 12;    ///< length of a line for its thickness: stems of large letters are less slim
    double gap = 0.03;            ///< inches within a line that dirt or a fold has broken
    double leastFigure = 0.5;     ///< inches, for each side of a photograph or drawing
    double apart = 0.1;           ///< inches between parts of one figure
    int darkest = 64;             ///< brightness from which a pixel is neither black ...
    int brightest = 192;          ///< ... nor white
    double midtones = 0.25;       ///< part of the pixels of a photograph that are neither; white on black has less
    double solid = 0.08;          ///< inches: dark areas without gaps; strokes of letters are thinner
    double hole = 0.3;            ///< inches, of the bright text on a dark area
    double leastDark = 0.15;      ///< inches, for each side of a dark area
    double rectangle = 0.9;       ///< part of its box that a dark rectangle fills
    double covered = 0.6;         ///< part of the box of a photograph that its dark parts cover
    double words = 0.1;           ///< part of a drawing that its labels cover; letters and frames have more
} thresholds;

struct BoxaDeleter
{
    void operator()(BOXA *boxes) const { boxaDestroy(&boxes); }
};

struct PixaDeleter
{
    void operator()(PIXA *pictures) const { pixaDestroy(&pictures); }
};

Box boxAt(BOXA *boxes, int index)
{
    l_int32 x = 0;
    l_int32 y = 0;
    l_int32 width = 0;
    l_int32 height = 0;
    boxaGetBoxGeometry(boxes, index, &x, &y, &width, &height);
    return {double(x), double(y), double(x) + width, double(y) + height};
}

std::vector<Box> connectedBoxes(PIX *dark)
{
    std::vector<Box> found;
    const std::unique_ptr<BOXA, BoxaDeleter> boxes(pixConnCompBB(dark, 8));
    const int count = boxes ? boxaGetCount(boxes.get()) : 0;
    found.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        found.push_back(boxAt(boxes.get(), i));
    }
    return found;
}

/// Lines of one direction: what is left of the picture where only long runs stay.
void addLines(PIX *dark, double dotsPerInch, bool horizontal, std::vector<model::Rule> &rules)
{
    const int gap = std::max(1, static_cast<int>(std::lround(thresholds.gap * dotsPerInch)));
    const double least = (horizontal ? thresholds.leastHorizontal : thresholds.leastVertical) * dotsPerInch;
    const int run = static_cast<int>(std::lround(least));
    const int piece = static_cast<int>(std::lround(thresholds.leastPiece * dotsPerInch));
    const auto alongX = [&](int length) { return horizontal ? length : 1; };
    const auto alongY = [&](int length) { return horizontal ? 1 : length; };
    // Only pieces of lines are joined: letters stand closer together.
    const PixPtr pieces = checked(pixOpenBrick(nullptr, dark, alongX(piece), alongY(piece)));
    const PixPtr closed = checked(pixCloseSafeBrick(nullptr, pieces.get(), alongX(gap), alongY(gap)));
    const PixPtr lines = checked(pixOpenBrick(nullptr, closed.get(), alongX(run), alongY(run)));
    PIXA *parts = nullptr;
    const std::unique_ptr<BOXA, BoxaDeleter> boxes(pixConnComp(lines.get(), &parts, 8));
    const std::unique_ptr<PIXA, PixaDeleter> pictures(parts);
    const int count = boxes ? boxaGetCount(boxes.get()) : 0;
    for (int i = 0; i < count; ++i) {
        const Box box = boxAt(boxes.get(), i);
        const PixPtr part(pixaGetPix(pictures.get(), i, L_CLONE));
        l_int32 pixels = 0;
        pixCountPixels(part.get(), &pixels, nullptr);
        const double length = horizontal ? box.width() : box.height();
        const double thickness = pixels / std::max(1.0, length);
        if (thickness > thresholds.mostThickness * dotsPerInch || length < thresholds.leastSlimness * thickness) {
            continue;
        }
        model::Rule rule;
        rule.width = thickness;
        if (horizontal) {
            rule.x1 = box.left;
            rule.x2 = box.right;
            rule.y1 = rule.y2 = box.centreY();
        } else {
            rule.x1 = rule.x2 = box.centreX();
            rule.y1 = box.top;
            rule.y2 = box.bottom;
        }
        rules.push_back(rule);
    }
}

bool touch(const Box &a, const Box &b, double apart)
{
    return !intersected(expanded(a, apart), b).isEmpty();
}

/// Joins boxes that nearly touch, until none do.
std::vector<Box> joined(std::vector<Box> boxes, double apart)
{
    for (std::size_t i = 0; i < boxes.size();) {
        const auto other =
            std::find_if(boxes.begin() + static_cast<std::ptrdiff_t>(i) + 1, boxes.end(), [&](const Box &box) {
                return touch(boxes[i], box, apart);
            });
        if (other == boxes.end()) {
            ++i;
            continue;
        }
        boxes[i] = united(boxes[i], *other);
        boxes.erase(other);
        i = 0;
    }
    return boxes;
}

/// The part of the box that is black.
double coverage(PIX *dark, const Box &box)
{
    BOX *place = boxCreate(
        static_cast<int>(box.left), static_cast<int>(box.top), static_cast<int>(box.width()),
        static_cast<int>(box.height()));
    l_int32 count = 0;
    pixCountPixelsInRect(dark, place, &count, nullptr);
    boxDestroy(&place);
    return count / std::max(1.0, box.area());
}

bool isLarge(const Box &box, double dotsPerInch)
{
    return std::min(box.width(), box.height()) >= thresholds.leastFigure * dotsPerInch;
}

/// The part of the pixels that are neither black nor white.
double midtones(PIX *gray, const Box &box)
{
    std::int64_t between = 0;
    for (int y = static_cast<int>(box.top); y < static_cast<int>(box.bottom); ++y) {
        const l_uint32 *line = pixGetData(gray) + static_cast<std::size_t>(y) * pixGetWpl(gray);
        for (int x = static_cast<int>(box.left); x < static_cast<int>(box.right); ++x) {
            const int value = GET_DATA_BYTE(line, x);
            between += value >= thresholds.darkest && value < thresholds.brightest ? 1 : 0;
        }
    }
    return double(between) / std::max(1.0, box.area());
}

} // namespace

std::vector<model::Rule> straightLines(PIX *dark, double dotsPerInch)
{
    std::vector<model::Rule> rules;
    addLines(dark, dotsPerInch, true, rules);
    addLines(dark, dotsPerInch, false, rules);
    return rules;
}

std::vector<Box> photographs(PIX *dark, PIX *gray, double dotsPerInch)
{
    const PixPtr mask(pixGenerateHalftoneMask(dark, nullptr, nullptr, nullptr));
    if (!mask) {
        return {};
    }
    std::vector<Box> boxes = joined(connectedBoxes(mask.get()), thresholds.apart * dotsPerInch);
    const auto isNone = [&](const Box &box) {
        return !isLarge(box, dotsPerInch) || coverage(mask.get(), box) < thresholds.covered ||
               midtones(gray, box) < thresholds.midtones;
    };
    boxes.erase(std::remove_if(boxes.begin(), boxes.end(), isNone), boxes.end());
    return boxes;
}

std::vector<Box> darkBoxes(PIX *dark, double dotsPerInch, const std::vector<Box> &photographs)
{
    const auto pixels = [&](double inches) { return std::max(1, static_cast<int>(std::lround(inches * dotsPerInch))); };
    const PixPtr solid = checked(pixOpenBrick(nullptr, dark, pixels(thresholds.solid), pixels(thresholds.solid)));
    l_int32 none = 0;
    pixZero(solid.get(), &none);
    if (none != 0) {
        return {};
    }
    const PixPtr filled =
        checked(pixCloseSafeBrick(nullptr, solid.get(), pixels(thresholds.hole), pixels(thresholds.hole)));
    std::vector<Box> boxes = connectedBoxes(filled.get());
    const auto isNone = [&](const Box &box) {
        if (std::min(box.width(), box.height()) < thresholds.leastDark * dotsPerInch ||
            std::any_of(photographs.begin(), photographs.end(), [&](const Box &photograph) {
                return touch(box, photograph, 0);
            })) {
            return true;
        }
        return coverage(filled.get(), box) < thresholds.rectangle;
    };
    boxes.erase(std::remove_if(boxes.begin(), boxes.end(), isNone), boxes.end());
    return boxes;
}

std::vector<Box> lineDrawings(
    PIX *dark, double dotsPerInch, const std::vector<model::Rule> &rules, const std::vector<Box> &others,
    const std::vector<model::RecognisedWord> &words)
{
    const PixPtr shapes = checked(pixCopy(nullptr, dark));
    const auto clear = [&](const Box &box) {
        pixRasterop(
            shapes.get(), static_cast<int>(box.left), static_cast<int>(box.top),
            static_cast<int>(std::ceil(box.width())), static_cast<int>(std::ceil(box.height())), PIX_CLR, nullptr, 0,
            0);
    };
    for (const model::Rule &rule : rules) {
        clear(expanded({rule.x1, rule.y1, rule.x2, rule.y2}, rule.width / 2 + 2));
    }
    for (const Box &other : others) {
        clear(other);
    }
    std::vector<Box> boxes = connectedBoxes(shapes.get());
    boxes.erase(
        std::remove_if(boxes.begin(), boxes.end(), [&](const Box &box) { return !isLarge(box, dotsPerInch); }),
        boxes.end());
    boxes = joined(std::move(boxes), thresholds.apart * dotsPerInch);
    const auto isText = [&](const Box &box) {
        double covered = 0;
        for (const model::RecognisedWord &word : words) {
            covered += intersected(box, word.box).area();
        }
        return covered > thresholds.words * box.area();
    };
    boxes.erase(std::remove_if(boxes.begin(), boxes.end(), isText), boxes.end());
    return boxes;
}

} // namespace quorra::ocr
