// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/dehyphenation.h"

#include "document/page_walk.h"

#include <QHash>

#include <vector>

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

// A word that is divided at a line end.
struct DividedWord
{
    Word *word; // its first part, with the hyphen
    QString first;
    QString second;
};

// The letters of a word in lower case, without punctuation around it.
QString lettersOf(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && !text.at(begin).isLetterOrNumber()) {
        ++begin;
    }
    while (end > begin && !text.at(end - 1).isLetterOrNumber()) {
        --end;
    }
    return text.mid(begin, end - begin).toLower();
}

std::vector<DividedWord> dividedWords(Document &document)
{
    std::vector<DividedWord> divided;
    for (Page &page : document.pages) {
        forEachParagraph(page, [&divided](Paragraph &paragraph) {
            for (std::size_t i = 0; i + 1 < paragraph.lines.size(); ++i) {
                Line &line = paragraph.lines[i];
                if (line.words.empty() || paragraph.lines[i + 1].words.empty() ||
                    line.words.back().separator != Separator::Hyphen) {
                    continue;
                }
                divided.push_back(
                    {&line.words.back(), lettersOf(line.words.back().text),
                     lettersOf(paragraph.lines[i + 1].words.front().text)});
            }
        });
    }
    return divided;
}

// Counts the words of the document that are among the keys. A compound also counts for its first part with a hyphen.
void countWords(const Document &document, QHash<QString, int> &counts)
{
    const auto count = [&counts](const QString &text) {
        const auto found = counts.find(text);
        if (found != counts.end()) {
            ++*found;
        }
    };
    for (const Page &page : document.pages) {
        forEachParagraph(page, [&count](const Paragraph &paragraph) {
            for (const Line &line : paragraph.lines) {
                for (const Word &word : line.words) {
                    const QString letters = lettersOf(word.text);
                    count(letters);
                    const qsizetype hyphen = letters.indexOf(QLatin1Char('-'));
                    if (hyphen > 0) {
                        count(letters.left(hyphen + 1));
                    }
                }
            }
        });
    }
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

void keepHyphensOfCompounds(Document &document)
{
    const std::vector<DividedWord> divided = dividedWords(document);
    if (divided.empty()) {
        return;
    }
    const QLatin1Char hyphen('-');
    QHash<QString, int> counts;
    for (const DividedWord &word : divided) {
        for (const QString &key :
             {word.first + word.second, word.first + hyphen + word.second, word.first + hyphen, word.first,
              word.second}) {
            counts.insert(key, 0);
        }
    }
    countWords(document, counts);
    for (const DividedWord &word : divided) {
        // The parts are words of the text themselves, on both lines.
        const int whole = counts.value(word.first + word.second);
        const int compound = counts.value(word.first + hyphen + word.second);
        const bool partsAreWords =
            counts.value(word.first) > 1 && counts.value(word.second) > 1 && counts.value(word.first + hyphen) > 0;
        if (compound > whole || (compound == 0 && whole == 0 && partsAreWords)) {
            word.word->separator = Separator::None;
        }
    }
}

} // namespace quorra::model
