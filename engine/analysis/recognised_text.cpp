// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognised_text.h"

#include "document/font_family.h"
#include "figures/figures.h"
#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using recognisedText::thresholds;

bool isOn(const RawWord &word, const Box &image)
{
    return image.contains(word.box.centreX(), word.box.centreY());
}

// Removes hidden words in the same place as visible ones.
void removeRepeated(std::vector<RawWord> &words)
{
    std::vector<const RawWord *> visible;
    for (const RawWord &word : words) {
        if (!word.hidden) {
            visible.push_back(&word);
        }
    }
    std::sort(
        visible.begin(), visible.end(), [](const RawWord *a, const RawWord *b) { return a->baseline < b->baseline; });
    const auto isRepeated = [&visible](const RawWord &word) {
        const double reach = thresholds.sameBaseline * word.style.size;
        auto other = std::lower_bound(
            visible.begin(), visible.end(), word.baseline - reach,
            [](const RawWord *each, double baseline) { return each->baseline < baseline; });
        for (; other != visible.end() && (*other)->baseline <= word.baseline + reach; ++other) {
            const Box both = intersected((*other)->box, word.box);
            if ((*other)->rotation == word.rotation && both.height() > 0 &&
                both.width() > thresholds.maxOverlap * word.box.width()) {
                return true;
            }
        }
        return false;
    };
    std::vector<RawWord> kept;
    kept.reserve(words.size());
    for (RawWord &word : words) {
        if (!word.hidden || !isRepeated(word)) {
            kept.push_back(std::move(word));
        }
    }
    words = std::move(kept);
}

// The images of the page whose hidden words are their text.
std::vector<Box> scansOf(const RawPage &page)
{
    std::vector<Box> scans;
    for (const RawPicture &picture : wholeImages(page.pictures)) {
        const Box &image = picture.box;
        double text = 0;
        for (const RawWord &word : page.words) {
            text += word.hidden && isOn(word, image) ? word.box.area() : 0;
        }
        if (text > 0 && (image.area() >= thresholds.minScanArea * page.width * page.height ||
                         text >= thresholds.minTextArea * image.area())) {
            scans.push_back(image);
        }
    }
    return scans;
}

// A piece of a scan that shows a picture rather than text: it lies on a larger piece, and no words are on it.
bool isPictureOnScan(const RawPicture &piece, const RawPage &page)
{
    const bool onLarger = std::any_of(page.pictures.begin(), page.pictures.end(), [&](const RawPicture &other) {
        return other.box.area() > 2 * piece.box.area() && other.box.contains(piece.box.centreX(), piece.box.centreY());
    });
    return onLarger && std::none_of(page.words.begin(), page.words.end(), [&](const RawWord &word) {
               return word.hidden && isOn(word, piece.box);
           });
}

// Removes the lines that recognition found in pictures on a scan, such as their edges.
void removeRulesOfParts(RawPage &page)
{
    const auto isOfPart = [&page](const Rule &rule) {
        const double x = (rule.x1 + rule.x2) / 2;
        const double y = (rule.y1 + rule.y2) / 2;
        return std::any_of(page.pictures.begin(), page.pictures.end(), [x, y](const RawPicture &picture) {
            return picture.part && expanded(picture.box, thresholds.partMargin).contains(x, y);
        });
    };
    page.rules.erase(std::remove_if(page.rules.begin(), page.rules.end(), isOfPart), page.rules.end());
}

// Fonts of recognised text are often placeholders without a design.
void makeReadable(Style &style)
{
    style.colour = black;
    const FontFamily *family = findFontFamily(style.family);
    if (!family) {
        style.family = QStringLiteral("Times New Roman");
        style.serif = true;
        style.fixedPitch = false;
    }
}

} // namespace

void resolveHiddenWords(RawPage &page)
{
    const auto isHidden = [](const RawWord &word) { return word.hidden; };
    if (std::none_of(page.words.begin(), page.words.end(), isHidden)) {
        return;
    }
    removeRepeated(page.words);
    const std::vector<Box> scans = scansOf(page);
    const auto onScan = [&scans](const Box &box) {
        return std::any_of(scans.begin(), scans.end(), [&box](const Box &scan) {
            return scan.contains(box.centreX(), box.centreY());
        });
    };
    for (RawPicture &picture : page.pictures) {
        picture.scan = !picture.part && onScan(picture.box) && !isPictureOnScan(picture, page);
    }
    const auto inPart = [&page](const RawWord &word) {
        return std::any_of(page.pictures.begin(), page.pictures.end(), [&word](const RawPicture &picture) {
            return picture.part && isOn(word, picture.box);
        });
    };
    page.words.erase(
        std::remove_if(
            page.words.begin(), page.words.end(),
            [&](const RawWord &word) { return word.hidden && (!onScan(word.box) || inPart(word)); }),
        page.words.end());
    removeRulesOfParts(page);
    for (RawWord &word : page.words) {
        if (word.hidden) {
            page.recognised = true;
            if (!word.confidence) { // the engine's own words have a style that is readable
                makeReadable(word.style);
            }
        }
    }
}

} // namespace quorra::model
