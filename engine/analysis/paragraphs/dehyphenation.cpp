// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/dehyphenation.h"

namespace quorra::model {

namespace {

using dehyphenation::thresholds;

// The Unicode blocks from CJK radicals to Yi, compatibility ideographs, and full-width forms.
bool isIdeograph(QChar c)
{
    return (c.unicode() >= 0x2e80 && c.unicode() < 0xa4d0) || (c.unicode() >= 0xf900 && c.unicode() < 0xfb00) ||
           (c.unicode() >= 0xff00 && c.unicode() < 0xffef);
}

bool isHyphen(QChar c)
{
    constexpr char16_t hyphen = 0x2010;
    constexpr char16_t softHyphen = 0xad;
    return c == QLatin1Char('-') || c.unicode() == hyphen || c.unicode() == softHyphen;
}

// The last word of the line: its last fragments in one style, as many as it takes to see the letter before a hyphen.
QString tailOf(const Line &line)
{
    QString tail;
    for (auto word = line.words.rbegin(); word != line.words.rend() && tail.size() < thresholds.minLength; ++word) {
        if (!tail.isEmpty() && (word->spaceAfter() || !(word->style == line.words.back().style))) {
            break;
        }
        tail.prepend(word->text);
    }
    return tail;
}

} // namespace

bool endsInHyphen(const QString &line, const QString &nextWord)
{
    if (line.size() < thresholds.minLength || nextWord.isEmpty() || !isHyphen(line.back())) {
        return false;
    }
    return line.at(line.size() - 2).isLetter() && nextWord.front().isLower();
}

Separator lineEnd(const Line &line, const QString &nextWord, bool keepBreak)
{
    const QString tail = tailOf(line);
    if (endsInHyphen(tail, nextWord)) { // even in preformatted text, such a line end is not intended
        return Separator::Hyphen;
    }
    if (keepBreak) {
        return Separator::LineBreak;
    }
    if (tail.isEmpty() || nextWord.isEmpty() || (isIdeograph(tail.back()) && isIdeograph(nextWord.front()))) {
        return Separator::None;
    }
    const bool ownHyphen =
        isHyphen(tail.back()) && tail.size() >= thresholds.minLength && tail.at(tail.size() - 2).isLetter();
    return ownHyphen ? Separator::None : Separator::Space;
}

} // namespace quorra::model
