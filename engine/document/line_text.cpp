// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/line_text.h"

#include "document/superscripts.h"

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

void appendText(std::vector<Run> &runs, const QString &text, const Style &style, Script script)
{
    if (runs.empty() || runs.back().script != script || !(runs.back().style == style)) {
        runs.push_back({text, style, script});
    } else {
        runs.back().text += text;
    }
}

// Blanks belong to the run before them, so that a link or an underline does not begin with one.
void appendBlank(std::vector<Run> &runs, QChar blank)
{
    if (!runs.empty()) {
        runs.back().text += blank;
    }
}

} // namespace

bool endsInHyphen(const QString &line, const QString &nextWord)
{
    if (line.size() < 2 || nextWord.isEmpty() || !isHyphen(line.back())) {
        return false;
    }
    return line.at(line.size() - 2).isLetter() && nextWord.front().isLower();
}

void appendLine(std::vector<Run> &runs, const Line &line, bool keepBreak)
{
    if (line.words.empty()) {
        return;
    }
    if (!runs.empty()) {
        QString &before = runs.back().text;
        const QString &next = line.words.front().text;
        if (endsInHyphen(before, next)) { // a word cut at the line's end: no break that is meant
            before.chop(1);
        } else if (keepBreak) {
            appendBlank(runs, QLatin1Char('\n'));
        } else if (!before.isEmpty() && !(isIdeograph(before.back()) && isIdeograph(next.front()))) {
            const bool dashed = isHyphen(before.back()) && before.size() > 1 && before.at(before.size() - 2).isLetter();
            if (!dashed) { // "Anglo-" and "Saxon": the hyphen is the word's own
                appendBlank(runs, QLatin1Char(' '));
            }
        }
    }
    const std::vector<Script> scripts = scriptsOf(line);
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const Word &word = line.words[i];
        appendText(runs, word.text, word.style, scripts[i]);
        if (i + 1 < line.words.size() && word.spaceAfter) {
            appendBlank(runs, QLatin1Char(' '));
        }
    }
}

QString lineText(const Line &line)
{
    QString text;
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        text += line.words[i].text;
        if (i + 1 < line.words.size() && line.words[i].spaceAfter) {
            text += QLatin1Char(' ');
        }
    }
    return text;
}

QString plainText(const std::vector<Run> &runs)
{
    QString text;
    for (const Run &run : runs) {
        text += run.text;
    }
    return text;
}

} // namespace quorra::model
