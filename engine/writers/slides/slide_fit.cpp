// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_fit.h"

#include "document/font_family.h"
#include "document/line_pieces.h"
#include "document/page_walk.h"
#include "odf/font_widths.h"
#include "odf/line_breaking.h"
#include "odf/odf_runs.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    int maxSpaces = 80;             ///< characters; between two words: a wrong width must not exhaust memory
    int maxIndent = 200;            ///< characters; before the first word of a line of code, likewise
    double minWideGap = 0.65;       ///< em; between words separated by several spaces, as after a heading's number
    double maxSqueezing = 0.03;     ///< share of the width; by which letters come closer before the type shrinks
    double minScale = 0.8;          ///< of font sizes; smaller text is too unlike the page
    double scaleStep = 0.01;        ///< of font sizes, while text is fitted into its lines
    double maxSpacing = 0.15;       ///< em; of letter spacing: wider words read as separate letters
    double spacingStep = 0.0283465; ///< points; 0.01 mm, to which presentation programs round
    std::size_t maxKeptLines = 6;   ///< lines; of a paragraph that is not aligned left and keeps its line ends
};
constexpr Thresholds thresholds;

bool isWidespread(const QString &family)
{
    const model::FontFamily *known = model::findFontFamily(family);
    return known && known->widespread;
}

bool isMeasured(const QString &family)
{
    const model::FontFamily *known = model::findFontFamily(family);
    return known && known->widths == model::FontWidths::Measured;
}

std::optional<double> knownWidth(const model::Word &word)
{
    return isMeasured(word.style->family) ? textWidth(word.text, *word.style) : std::nullopt;
}

struct Widths
{
    double onPage = 0;
    double natural = 0;
    double characters = 0;
};

std::optional<Widths> widthsOf(const model::Paragraph &paragraph)
{
    Widths widths;
    for (const model::Line &line : paragraph.lines) {
        for (const model::Word &word : line.words) {
            const std::optional<double> natural = knownWidth(word);
            if (!natural) {
                return std::nullopt;
            }
            widths.onPage += word.box.width();
            widths.natural += *natural;
            widths.characters += static_cast<double>(word.text.size());
        }
    }
    return widths.characters > 0 ? std::optional(widths) : std::nullopt;
}

double widthOf(const model::Word &word)
{
    return knownWidth(word).value_or(word.box.width());
}

double spaceWidth(const model::Style &style)
{
    return textWidth(u" "_s, style).value_or(0);
}

void addWord(std::vector<model::Run> &runs, const QString &text, const model::Word &word)
{
    if (!runs.empty() && runs.back().style == *word.style && runs.back().shift == word.shift &&
        runs.back().link == word.link) {
        runs.back().text += text;
    } else {
        runs.push_back({text, *word.style, word.shift, word.link});
    }
}

/// That many spaces, within the thresholds.
QString spaces(double count, int least, int most)
{
    return QString(std::lround(std::clamp<double>(count, least, most)), u' ');
}

QString spacesBetween(const model::Word &word, const model::Word &next)
{
    const double gap = next.box.left - word.box.right;
    if (!word.style->fixedPitch) {
        // More than one space follows the number of a heading.
        const double space = textWidth(u" "_s, *word.style).value_or(usualSpaceWidth * word.style->size);
        const bool wide = word.spaceAfter() && gap > thresholds.minWideGap * word.style->size;
        return spaces(wide ? gap / space : 0, word.spaceAfter() ? 1 : 0, thresholds.maxSpaces);
    }
    return spaces(gap / (fixedPitchWidth * word.style->size), word.spaceAfter() ? 1 : 0, thresholds.maxSpaces);
}

/// Replaces the font families that may not be kept by the common one of their kind.
void exchangeFonts(model::Paragraph &paragraph, model::StyleTable &styles, bool (*mayKeep)(const QString &))
{
    std::map<const model::Style *, QString> texts;
    for (const model::Line &line : paragraph.lines) {
        for (const model::Word &word : line.words) {
            texts[&*word.style] += word.text;
        }
    }
    std::map<const model::Style *, model::StyleRef> exchanged;
    for (const auto &[style, text] : texts) {
        if (!mayKeep(style->family) && textWidth(text, *style)) {
            model::Style common = *style;
            common.family = measuredFamily(*style);
            exchanged.emplace(style, styles.add(common));
        }
    }
    for (model::Line &line : paragraph.lines) {
        for (model::Word &word : line.words) {
            const auto found = exchanged.find(&*word.style);
            word.style = found == exchanged.end() ? word.style : found->second;
        }
    }
}

} // namespace

void useCommonFonts(model::Document &document)
{
    for (model::Page &page : document.pages) {
        forEachBlock(page, [&](model::Block &block) {
            model::Table *table = block.table();
            if (!table) {
                return;
            }
            // The rows of a table get the heights that they have in the fonts of this machine.
            for (model::Cell &cell : table->cells) {
                for (model::Paragraph &paragraph : cell.paragraphs) {
                    exchangeFonts(paragraph, document.styles, isMeasured);
                }
            }
        });
        forEachParagraph(
            page, [&](model::Paragraph &paragraph) { exchangeFonts(paragraph, document.styles, isWidespread); });
    }
}

TextFit fittingText(const model::Paragraph &paragraph, double width)
{
    const std::optional<Widths> widths = widthsOf(paragraph);
    if (!widths || widths->natural <= 0) {
        return {};
    }
    const double size = largestSize(paragraph);
    const auto onPage = static_cast<int>(paragraph.lines.size());
    std::optional<TextFit> first; // what remains if the lines cannot be kept
    TextFit fit;
    fit.scale =
        std::clamp(widths->onPage / ((1 - thresholds.maxSqueezing) * widths->natural), thresholds.minScale, 1.0);
    for (;; fit.scale -= thresholds.scaleStep) {
        const double natural = fit.scale * widths->natural;
        const double exact = (widths->onPage - natural) / widths->characters;
        const double least = -thresholds.maxSqueezing * natural / widths->characters;
        fit.spacing = std::clamp(
            std::floor(exact / thresholds.spacingStep) * thresholds.spacingStep, least, thresholds.maxSpacing * size);
        if (keepsLines(paragraph)) {
            return fit;
        }
        first = first.value_or(fit);
        const TextMeasure measure{
            [&](const model::Word &word) { return fit.scale * widthOf(word); },
            [&](const model::Style &style) { return fit.scale * spaceWidth(style); }};
        const std::vector<UnbreakableText> texts = unbreakableTexts(paragraph, measure);
        LineStrip strip{
            .width = width,
            .firstIndent = std::max(0.0, paragraph.firstLineIndent),
            .otherIndent = std::max(0.0, -paragraph.firstLineIndent),
            .letterSpacing = fit.spacing};
        while (strip.letterSpacing > least && countLines(texts, strip) > onPage) {
            strip.letterSpacing -= thresholds.spacingStep;
        }
        if (countLines(texts, strip) <= onPage) {
            fit.spacing = strip.letterSpacing;
            return fit;
        }
        if (fit.scale - thresholds.scaleStep < thresholds.minScale) {
            return *first;
        }
    }
}

std::vector<model::Run> scaledRuns(std::vector<model::Run> runs, double scale)
{
    for (model::Run &run : runs) {
        run.style.size *= scale;
    }
    return runs;
}

bool hasKnownWidths(const model::Paragraph &paragraph)
{
    return widthsOf(paragraph).has_value();
}

std::vector<model::Paragraph> paragraphPieces(const model::Paragraph &paragraph, bool everyLine)
{
    const bool header = paragraph.role == model::Role::PageHeader;
    const model::PieceLimits &limits = everyLine ? model::labelLimits
                                       : header  ? model::pageHeaderLimits
                                                 : model::textLimits;
    std::vector<model::Line> pieces;
    for (const model::Line &line : paragraph.lines) {
        for (model::Line &piece : linePieces(line, limits)) {
            pieces.push_back(std::move(piece));
        }
    }
    // A wide space in one of many lines is due to justification.
    const bool whole = pieces.size() < 2 || (!everyLine && 2 * pieces.size() < 3 * paragraph.lines.size());
    if (whole || (paragraph.listItem && !everyLine)) {
        return {paragraph};
    }
    std::vector<model::Paragraph> result;
    for (model::Line &piece : pieces) {
        model::Paragraph single;
        single.box = piece.box;
        single.rightToLeft = paragraph.rightToLeft;
        single.lines = {std::move(piece)};
        result.push_back(std::move(single));
    }
    return result;
}

bool keepsLines(const model::Paragraph &paragraph)
{
    if (paragraph.lines.size() < 2) {
        return true;
    }
    std::size_t breaks = 1;
    breaks += static_cast<std::size_t>(model::plainText(paragraph).count(u'\n'));
    const bool flush = paragraph.alignment == model::Alignment::Left ||
                       paragraph.alignment == model::Alignment::Justify || paragraph.listItem;
    return breaks >= paragraph.lines.size() || (!flush && paragraph.lines.size() <= thresholds.maxKeptLines);
}

std::vector<model::Run> runsByLine(const model::Paragraph &paragraph)
{
    if (paragraph.lines.empty() || paragraph.listItem) {
        return model::runsOf(paragraph);
    }
    std::vector<model::Run> runs;
    for (const model::Line &line : paragraph.lines) {
        for (std::size_t i = 0; i < line.words.size(); ++i) {
            const model::Word &word = line.words[i];
            QString text = word.text;
            if (i == 0 && word.style->fixedPitch && paragraph.lines.size() > 1) {
                const double indent = (word.box.left - paragraph.box.left) / (fixedPitchWidth * word.style->size);
                text.prepend(spaces(indent, 0, thresholds.maxIndent));
            }
            if (i + 1 < line.words.size()) {
                text += spacesBetween(word, line.words[i + 1]);
            } else if (&line != &paragraph.lines.back()) {
                text += u'\n';
            }
            addWord(runs, text, word);
        }
    }
    return runs;
}

} // namespace quorra::office
