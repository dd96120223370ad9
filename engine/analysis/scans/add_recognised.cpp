// SPDX-License-Identifier: GPL-3.0-or-later
#include "add_recognised.h"

#include "base/colour.h"
#include "even_type.h"

#include <algorithm>
#include <set>

namespace quorra::model {

namespace {

using addingRecognised::thresholds;

template <typename Words>
std::size_t lettersIn(const Words &words)
{
    std::size_t letters = 0;
    for (const auto &word : words) {
        letters += static_cast<std::size_t>(
            std::count_if(word.text.begin(), word.text.end(), [](QChar c) { return c.isLetterOrNumber(); }));
    }
    return letters;
}

Box scaled(const Box &box, double dot)
{
    return {box.left * dot, box.top * dot, box.right * dot, box.bottom * dot};
}

bool isDark(Colour colour)
{
    constexpr double full = 255;
    const double luminance = 0.299 * static_cast<double>(colour >> 16U & 0xffU) +
                             0.587 * static_cast<double>(colour >> 8U & 0xffU) +
                             0.114 * static_cast<double>(colour & 0xffU);
    return luminance < thresholds.darkFill * full;
}

Style styleOf(const RecognisedWord &word, double dot)
{
    Style style;
    style.family = word.fixedPitch ? QStringLiteral("Courier New")
                   : word.serif    ? QStringLiteral("Times New Roman")
                                   : QStringLiteral("Arial");
    style.serif = word.serif && !word.fixedPitch;
    style.fixedPitch = word.fixedPitch;
    style.bold = word.bold;
    style.italic = word.italic;
    style.size = word.size * dot;
    return style;
}

RawWord rawWord(const RecognisedWord &word, double dot)
{
    RawWord raw;
    raw.text = word.text;
    raw.box = scaled(word.box, dot);
    raw.baseline = word.baseline * dot;
    raw.rotation = word.rotation;
    raw.spaceAfter = word.spaceAfter;
    raw.endsLine = word.endsLine;
    raw.style = styleOf(word, dot);
    raw.confidence = std::clamp(word.confidence, 0.0, 1.0);
    return raw;
}

/// Whether the page has hardly any of the recognised words, although these are certain.
bool contradicts(const RecognisedPicture &picture, const std::vector<RawWord> &words)
{
    std::set<QString> known;
    for (const RawWord &word : words) {
        known.insert(word.text.toLower());
    }
    double confidence = 0;
    std::size_t compared = 0;
    std::size_t same = 0;
    for (const RecognisedWord &word : picture.words) {
        confidence += word.confidence;
        if (word.text.size() >= thresholds.minCompared) {
            ++compared;
            same += known.count(word.text.toLower());
        }
    }
    return compared >= thresholds.minWords &&
           confidence >= thresholds.minConfidence * static_cast<double>(picture.words.size()) &&
           static_cast<double>(same) <= thresholds.maxAgreement * static_cast<double>(compared);
}

void addMarks(RawPage &page, const RecognisedPicture &picture, double dot)
{
    for (const Box &figure : picture.figures) {
        page.pictures.push_back({scaled(figure, dot), {}, false, true});
    }
    for (const Rule &rule : picture.rules) {
        page.rules.push_back(
            {rule.x1 * dot, rule.y1 * dot, rule.x2 * dot, rule.y2 * dot, rule.width * dot, rule.colour});
    }
    for (const Fill &fill : picture.fills) {
        page.fills.push_back({scaled(fill.box, dot), fill.colour, fill.exact});
    }
}

/// Words on a dark fill are white.
void colourWords(std::vector<RawWord> &words, const std::vector<Fill> &fills)
{
    for (const Fill &fill : fills) {
        for (RawWord &word : words) {
            if (isDark(fill.colour) && fill.box.contains(word.box.centreX(), word.box.centreY())) {
                word.style.colour = white;
            }
        }
    }
}

/// Removes the curves that are the letters of the words, and the words on images, which show them.
void replaceCurves(RawPage &page, std::vector<RawWord> &words)
{
    const auto isOnImage = [&page](const RawWord &word) {
        return std::any_of(page.pictures.begin(), page.pictures.end(), [&word](const RawPicture &picture) {
            return picture.box.contains(word.box.centreX(), word.box.centreY());
        });
    };
    words.erase(std::remove_if(words.begin(), words.end(), isOnImage), words.end());
    const auto isLetter = [&words](const Ink &ink) {
        return std::any_of(words.begin(), words.end(), [&ink](const RawWord &word) {
            const Box around = expanded(word.box, thresholds.inkMargin * word.style.size);
            return ink.box.left >= around.left && ink.box.right <= around.right && ink.box.top >= around.top &&
                   ink.box.bottom <= around.bottom;
        });
    };
    page.ink.erase(std::remove_if(page.ink.begin(), page.ink.end(), isLetter), page.ink.end());
}

} // namespace

bool addRecognised(RawPage &page, TextLayer layer, const RecognisedPicture &picture, double dot)
{
    const std::size_t letters = lettersIn(picture.words);
    const std::size_t marks = lettersIn(page.words);
    const bool isBetter = layer == TextLayer::Doubtful ? contradicts(picture, page.words)
                                                       : static_cast<double>(letters) >=
                                                             thresholds.minMoreThanMarks * static_cast<double>(marks);
    if (layer == TextLayer::Usable || letters < thresholds.minLetters || !isBetter) {
        return false;
    }
    std::vector<RawWord> words;
    words.reserve(picture.words.size());
    std::vector<RecognisedWord> even = picture.words;
    evenOutType(even);
    for (const RecognisedWord &word : even) {
        words.push_back(rawWord(word, dot));
    }
    const bool onScan = layer == TextLayer::Missing ||
                        (layer == TextLayer::Doubtful &&
                         std::all_of(page.words.begin(), page.words.end(), [](const RawWord &w) { return w.hidden; }));
    if (onScan) {
        addMarks(page, picture, dot);
        colourWords(words, page.fills);
    }
    if (layer == TextLayer::Drawn) {
        replaceCurves(page, words);
    }
    if (layer == TextLayer::Doubtful) {
        page.words.clear();
    }
    for (RawWord &word : words) {
        word.hidden = onScan;
        page.words.push_back(std::move(word));
    }
    for (std::size_t i = 0; i < page.words.size(); ++i) {
        page.words[i].index = i;
    }
    return true;
}

void removePartsWithText(RawPage &page)
{
    const auto showsText = [&page](const RawPicture &picture) {
        double text = 0;
        for (const RawWord &word : page.words) {
            const Box both = intersected(word.box, picture.box);
            text += both.area();
        }
        return picture.part && text > thresholds.maxTextOnPart * picture.box.area();
    };
    page.pictures.erase(std::remove_if(page.pictures.begin(), page.pictures.end(), showsText), page.pictures.end());
}

} // namespace quorra::model
