// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_layer.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using textLayer::thresholds;

std::size_t lettersOf(const RawWord &word)
{
    return static_cast<std::size_t>(
        std::count_if(word.text.begin(), word.text.end(), [](QChar c) { return c.isLetterOrNumber(); }));
}

bool isAtEdge(const RawWord &word, const RawPage &page)
{
    const double across = thresholds.edge * page.width;
    const double down = thresholds.edge * page.height;
    const Box inside{across, down, page.width - across, page.height - down};
    return !inside.contains(word.box.centreX(), word.box.centreY());
}

/// The letters and digits of a page's words.
struct Marks
{
    std::size_t atEdges = 0;
    std::size_t elsewhere = 0;

    std::size_t all() const { return atEdges + elsewhere; }
};

/// Stops counting when there are so many that the page has text.
Marks marksOf(const RawPage &page)
{
    Marks marks;
    for (const RawWord &word : page.words) {
        (isAtEdge(word, page) ? marks.atEdges : marks.elsewhere) += lettersOf(word);
        if (marks.elsewhere > thresholds.maxElsewhere) {
            break;
        }
    }
    return marks;
}

/// The share of the page that images cover, counted on a grid.
double imageArea(const RawPage &page)
{
    constexpr int steps = 100; // each way
    constexpr std::size_t mostImages = 1000;
    const std::size_t count = std::min(mostImages, page.pictures.size());
    int covered = 0;
    for (int i = 0; i < steps * steps; ++i) {
        const double x = page.width * (i % steps + 0.5) / steps;
        const double y = page.height * (std::floor(static_cast<double>(i) / steps) + 0.5) / steps;
        covered += std::any_of(
            page.pictures.begin(), page.pictures.begin() + static_cast<std::ptrdiff_t>(count),
            [x, y](const RawPicture &picture) { return picture.box.contains(x, y); });
    }
    return static_cast<double>(covered) / (steps * steps);
}

bool hasDrawnLetters(const RawPage &page)
{
    const auto letters = static_cast<std::size_t>(std::count_if(page.ink.begin(), page.ink.end(), [](const Ink &ink) {
        const double side = std::max(ink.box.width(), ink.box.height());
        return side >= thresholds.minLetter && side <= thresholds.maxLetter;
    }));
    return letters >= thresholds.minCurves &&
           static_cast<double>(letters) >= thresholds.minLetterShare * static_cast<double>(page.ink.size());
}

bool isVowel(QChar c)
{
    constexpr char16_t vowels[] = u"aeiouyæœøəı";
    const QString parts = c.unicode() < 0x80 ? QString() : c.decomposition();
    const char16_t base = (parts.isEmpty() ? c : parts.front()).toLower().unicode();
    return std::find(std::begin(vowels), std::end(vowels) - 1, base) != std::end(vowels) - 1;
}

/// Whether a character is none of those that text in any language consists of.
bool isStrange(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Symbol_Modifier:
    case QChar::Symbol_Other:
        return true;
    default:
        return c == QChar::ReplacementCharacter;
    }
}

} // namespace

bool isSenseless(const std::vector<RawWord> &words)
{
    std::size_t characters = 0;
    std::size_t strange = 0;
    std::size_t letters = 0;
    std::size_t vowels = 0;
    for (const RawWord &word : words) {
        for (const QChar c : word.text) {
            const bool latin = c.isLetter() && c.script() == QChar::Script_Latin;
            ++characters;
            strange += isStrange(c) ? 1 : 0;
            letters += latin ? 1 : 0;
            vowels += latin && isVowel(c) ? 1 : 0;
        }
        if (characters >= thresholds.maxJudged) {
            break;
        }
    }
    const auto share = [](std::size_t part, std::size_t whole) {
        return static_cast<double>(part) / static_cast<double>(whole);
    };
    // The script of most characters decides: Latin letters in other scripts are names and abbreviations.
    const bool isLatin = letters >= thresholds.minLetters && 2 * letters >= characters;
    return (isLatin && share(vowels, letters) < thresholds.minVowels) ||
           (characters >= thresholds.minLetters && share(strange, characters) > thresholds.maxStrange);
}

bool hasLittleText(const RawPage &page)
{
    const Marks marks = marksOf(page);
    return marks.elsewhere <= thresholds.maxElsewhere && marks.atEdges <= thresholds.maxMarks;
}

TextLayer textLayerOf(const RawPage &page)
{
    if (!hasLittleText(page)) {
        return isSenseless(page.words) ? TextLayer::Doubtful : TextLayer::Usable;
    }
    const Marks marks = marksOf(page);
    if (imageArea(page) >= (marks.all() == 0 ? thresholds.minImageArea : thresholds.minMarkedArea)) {
        return TextLayer::Missing;
    }
    return marks.all() == 0 && hasDrawnLetters(page) ? TextLayer::Drawn : TextLayer::Usable;
}

double readingResolution(const RawPage &page)
{
    double own = 0;
    for (const RawPicture &picture : page.pictures) {
        if (picture.box.area() >= thresholds.minShareOfPicture * page.width * page.height) {
            own = std::max(own, picture.dotsPerInch);
        }
    }
    if (!(own >= thresholds.minResolution) || !std::isfinite(own)) {
        return thresholds.usualResolution;
    }
    // A whole fraction: each pixel of the picture then stands for the same number of pixels of the image.
    return own / std::max(1.0, std::ceil(own / thresholds.maxResolution));
}

} // namespace quorra::model
