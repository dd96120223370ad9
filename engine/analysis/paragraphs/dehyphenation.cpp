// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/dehyphenation.h"

namespace quorra::model {

namespace {

bool isIdeograph(QChar c)
{
    return (c.unicode() >= 0x2e80 && c.unicode() < 0xa4d0) || (c.unicode() >= 0xf900 && c.unicode() < 0xfb00) ||
           (c.unicode() >= 0xff00 && c.unicode() < 0xffef);
}

bool isHyphen(QChar c)
{
    return c == QLatin1Char('-') || c.unicode() == 0x2010 || c.unicode() == 0xad;
}

// The end of the line's text in one style: its last word, with the parts drawn just before it.
QString tailOf(const Line &line)
{
    QString tail;
    for (auto word = line.words.rbegin(); word != line.words.rend() && tail.size() < 2; ++word) {
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
    if (line.size() < 2 || nextWord.isEmpty() || !isHyphen(line.back())) {
        return false;
    }
    return line.at(line.size() - 2).isLetter() && nextWord.front().isLower();
}

Separator lineEnd(const Line &line, const QString &nextWord, bool keepBreak)
{
    const QString tail = tailOf(line);
    if (endsInHyphen(tail, nextWord)) { // a word cut at the line's end: no break that is meant
        return Separator::Hyphen;
    }
    if (keepBreak) {
        return Separator::LineBreak;
    }
    if (tail.isEmpty() || nextWord.isEmpty() || (isIdeograph(tail.back()) && isIdeograph(nextWord.front()))) {
        return Separator::None;
    }
    // "Anglo-" and "Saxon": the hyphen is the word's own.
    const bool dashed = isHyphen(tail.back()) && tail.size() > 1 && tail.at(tail.size() - 2).isLetter();
    return dashed ? Separator::None : Separator::Space;
}

} // namespace quorra::model
