// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/line_breaking.h"

namespace quorra::office {

std::vector<UnbreakableText> unbreakableTexts(const model::Paragraph &paragraph, const TextMeasure &measure)
{
    std::vector<UnbreakableText> texts;
    bool joins = false; // whether the previous word continues without a space
    for (const model::Line &line : paragraph.lines) {
        for (std::size_t i = 0; i < line.words.size(); ++i) {
            const model::Word &word = line.words[i];
            if (!joins) {
                texts.push_back({0, measure.space(*word.style), 0});
            }
            texts.back().width += measure.word(word);
            texts.back().characters += static_cast<double>(word.text.size());
            const bool endsLine = i + 1 == line.words.size();
            joins = endsLine ? word.separator == model::Separator::Hyphen : !word.spaceAfter();
            texts.back().endsLine = word.separator == model::Separator::LineBreak;
        }
    }
    return texts;
}

int countLines(const std::vector<UnbreakableText> &texts, const LineStrip &strip)
{
    int lines = 1;
    double at = strip.firstIndent;
    bool empty = true; // whether the line is empty
    for (const UnbreakableText &text : texts) {
        const double width = text.width + text.characters * strip.letterSpacing;
        const double end = at + (empty ? 0 : text.spaceBefore + strip.letterSpacing) + width;
        const bool wraps = !empty && end > strip.width;
        const bool breaks = text.endsLine && &text != &texts.back();
        lines += (wraps ? 1 : 0) + (breaks ? 1 : 0);
        at = wraps ? strip.otherIndent + width : end;
        if (breaks) {
            at = strip.otherIndent;
        }
        empty = breaks;
    }
    return lines;
}

} // namespace quorra::office
