// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/common_fonts.h"

#include "document/font_family.h"
#include "document/page_walk.h"
#include "odf/font_widths.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace quorra::office {

namespace {

struct Thresholds
{
    double minKnown = 0.9;  ///< share of the characters of a style that the common font must have to replace its font
    double minScale = 0.7;  ///< of character widths; narrower text is hard to read
    double maxScale = 0.98; ///< of character widths; text that is less too wide fits anyway
    double maxSpace = 3;    ///< times the width of a space; wider gaps are not between words
    double step = 0.01;     ///< of character widths, which are whole percents in word processors
};
constexpr Thresholds thresholds;

/// The words of a font at a size, and the spaces between them.
struct Usage
{
    double characters = 0;
    double known = 0;    ///< characters whose widths are known
    double onPage = 0;   ///< points; width of the text with known widths
    double natural = 0;  ///< points; the same in the common font
    bool common = false; ///< the output is in the common font
};

using Usages = std::map<SizedFont, Usage>;

double lengthOf(const model::Word &word)
{
    return word.rotation % 180 == 0 ? word.box.width() : word.box.height();
}

void addWord(Usages &usages, const model::Word &word)
{
    if (word.leader) { // its dots are as far apart as the gap needs
        return;
    }
    Usage &usage = usages[sizedFont(*word.style)];
    const auto characters = static_cast<double>(word.text.size());
    usage.characters += characters;
    usage.common = hasCommonWidths(*word.style);
    if (const std::optional<double> natural = textWidth(word.text, *word.style)) {
        usage.known += characters;
        usage.onPage += lengthOf(word);
        usage.natural += *natural;
    }
}

/// Adds the space between two words of a font, which may be narrower or wider than that of the font.
void addSpace(Usages &usages, const model::Word &word, const model::Word &next)
{
    const double gap = next.box.left - word.box.right;
    const double natural = textWidth(QStringLiteral(" "), *word.style).value_or(0);
    if (word.separator == model::Separator::Space && word.rotation == 0 && gap > 0 &&
        gap < thresholds.maxSpace * natural && *word.style == *next.style) {
        Usage &usage = usages[sizedFont(*word.style)];
        usage.onPage += gap;
        usage.natural += natural;
    }
}

Usages usagesOf(const model::Document &document)
{
    Usages usages;
    for (const model::Page &page : document.pages) {
        model::forEachParagraph(page, [&usages](const model::Paragraph &paragraph) {
            for (const model::Line &line : paragraph.lines) {
                for (std::size_t i = 0; i < line.words.size(); ++i) {
                    addWord(usages, line.words[i]);
                    if (i > 0) {
                        addSpace(usages, line.words[i - 1], line.words[i]);
                    }
                }
            }
        });
    }
    return usages;
}

/// Returns the scale in whole steps; 1 if the characters are about as wide as on the page, or narrower.
double scaleOf(const Usage &usage)
{
    if (usage.natural <= 0) {
        return 1;
    }
    const double scale = std::floor(usage.onPage / usage.natural / thresholds.step + 0.5) * thresholds.step;
    return scale > thresholds.maxScale ? 1 : std::max(scale, thresholds.minScale);
}

} // namespace

bool hasCommonWidths(const model::Style &style)
{
    const model::FontFamily *known = model::findFontFamily(style.family);
    return model::isTypesettingFace(style.family) || (known && known->widths == model::FontWidths::Measured);
}

void replaceRareFonts(model::Document &document)
{
    const Usages usages = usagesOf(document);
    document.styles.edit([&usages](model::Style &style) {
        const auto usage = usages.find(sizedFont(style));
        const model::FontFamily *known = model::findFontFamily(style.family);
        const bool remains = style.family.isEmpty() || model::isTypesettingFace(style.family) ||
                             (known && (known->widespread || known->widths != model::FontWidths::Unknown));
        if (!remains && usage != usages.end() &&
            usage->second.known >= thresholds.minKnown * usage->second.characters) {
            style.family = measuredFamily(style);
        }
    });
}

WidthScales characterScales(const model::Document &document)
{
    WidthScales scales;
    for (const auto &[font, usage] : usagesOf(document)) {
        const double scale = scaleOf(usage);
        if (usage.common && scale < 1) {
            scales.emplace(font, scale);
        }
    }
    return scales;
}

} // namespace quorra::office
